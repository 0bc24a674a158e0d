// qdr shape offset|cross|measure: tries the polylines of the kernel on shapes given as text.

#include <cmath>
#include <iostream>
#include <iterator>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>

#include "geometry/circ_arc2d.h"
#include "geometry/polyline2d.h"
#include "tools/polyline_text.h"
#include "tools/shape_picture.h"
#include "tools/verbs.h"

namespace {

using nlohmann::json;
using qdr_tools::numberText;
using qdr_tools::pointText;
using qdr_tools::ShapePicture;

constexpr const char* kShapeHelp =
    "'X,Y X,Y(BULGE) ... close', @FILE with such a text, or - for standard input";
constexpr std::size_t kMaxTextBytes = std::size_t{64} << 20;
constexpr int kSideTries = 1000;     // segments asked for a place beside the shape
constexpr double kSideStep = 0.001;  // of the chord, from a segment to that place

constexpr COLORREF kSourceColor = 0x606060;
constexpr COLORREF kMarkColor = 0x2020d0;
constexpr COLORREF kOtherColor = 0x208020;
constexpr COLORREF kPieceColors[] = {0x2060d0, 0xc06000, 0x208020, 0xa000a0, 0x008080};

struct Options {
  std::string shape;
  std::string other;
  std::string side;
  std::string place;
  std::string extend = "none";
  std::string picture;
  double distance = 0;
  bool both = false;
  bool longest = false;
  bool asJson = false;
};

using Pieces = std::vector<std::unique_ptr<CQdrGePolyline2d>>;

int refuse(const std::string& reason, int exitCode) {
  qdr_tools::reportTrouble("shape", reason);
  return exitCode;
}

std::string placeOf(const qdr_tools::TextFault& fault) {
  return "line " + std::to_string(fault.line) + ", column " + std::to_string(fault.column) + ": " +
         fault.reason;
}

// One byte above the limit is enough to see that a text is too long.
std::string boundedInput(std::istream& stream) {
  std::string text(kMaxTextBytes + 1, '\0');
  stream.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(stream.gcount()));
  return text;
}

// Reads the shape that an argument holds or names; answers an exit code.
int readShape(const std::string& argument, CQdrGePolyline2d& shape) {
  std::string name = "shape";
  std::string text = argument;
  if (argument == "-") {
    text = boundedInput(std::cin);
  } else if (argument.starts_with('@')) {
    name = argument.substr(1);
    if (!qdr_tools::loadFile(name, text)) return qdr_tools::kFileTrouble;
  }
  if (text.size() > kMaxTextBytes) return refuse("the text is too long", qdr_tools::kUsage);
  const auto fault = qdr_tools::parsePolyline(text, shape);
  if (!fault) return qdr_tools::kSound;
  qdr_tools::reportTrouble(name, placeOf(*fault));
  return qdr_tools::kUsage;
}

int savePicture(const ShapePicture& picture, const std::string& path) {
  if (path.empty()) return qdr_tools::kSound;
  std::string bytes;
  std::string reason;
  if (!qdr_tools::renderPicture(picture, path, bytes, reason)) {
    qdr_tools::reportTrouble(path, reason);
    return qdr_tools::kFileTrouble;
  }
  return qdr_tools::saveFile(path, bytes) ? qdr_tools::kSound : qdr_tools::kFileTrouble;
}

void printJson(const json& answer) {
  std::cout << answer.dump(2) << "\n";
}

json toJson(const CQdrGePoint2d& point) {
  return {point.x, point.y};
}

json toJson(const CQdrGePolyline2d& shape) {
  json vertices = json::array();
  for (int i = 0; i < shape.numVerts(); ++i) {
    const CQdrGePoint2d& point = shape.points()[static_cast<std::size_t>(i)];
    vertices.push_back({point.x, point.y, shape.getBulgeAt(i)});
  }
  return {
      {"vertices", std::move(vertices)}, {"closed", shape.isClosed()}, {"length", shape.length()}};
}

// ------------------------------------------------------------------------------------- offset

// A place close to the left or right of some segment, as the offset itself sees sides.
bool findPlaceBeside(const CQdrGePolyline2d& shape, int direction, double distance,
                     CQdrGePoint2d& place) {
  for (int i = 0; i < std::min(shape.numVerts(), kSideTries); ++i) {
    const CQdrGePoint2d start = shape.points()[static_cast<std::size_t>(i)];
    const int next = (i + 1) % shape.numVerts();
    const CQdrGePoint2d end = shape.points()[static_cast<std::size_t>(next)];
    if (i + 1 == shape.numVerts() && !shape.isClosed()) break;
    CQdrGePoint2d middle((start.x + end.x) / 2, (start.y + end.y) / 2);
    CQdrGeCircArc2d arc;
    if (shape.getArcSegAt(i, arc)) middle = arc.pointAtParam(0.5);
    // The tangent in the middle of an arc runs along its chord.
    const double step = kSideStep * direction;
    place = CQdrGePoint2d(middle.x - (end.y - start.y) * step, middle.y + (end.x - start.x) * step);
    if (shape.getoffsetDirection(place, distance) == direction) return true;
  }
  return false;
}

int readSide(const Options& options, const CQdrGePolyline2d& shape, CQdrGePoint2d& side) {
  static const std::map<std::string, int> kDirections = {{"left", 1}, {"right", -1}};
  if (const auto named = kDirections.find(options.side); named != kDirections.end()) {
    if (findPlaceBeside(shape, named->second, options.distance, side)) return qdr_tools::kSound;
    return refuse("no place found to its " + options.side + "; give one as X,Y",
                  qdr_tools::kNoResult);
  }
  const auto fault = qdr_tools::parsePoint(options.side, side);
  return fault ? refuse("side: " + placeOf(*fault), qdr_tools::kUsage) : qdr_tools::kSound;
}

Pieces offsetPieces(const CQdrGePolyline2d& shape, const CQdrGePoint2d& side,
                    const Options& options) {
  Pieces pieces;
  if (options.longest) {
    auto copy = std::make_unique<CQdrGePolyline2d>(shape);
    if (copy->offset(side, options.distance)) pieces.push_back(std::move(copy));
    return pieces;
  }
  std::vector<void*> found;
  shape.offset(side, options.distance, found, options.both);
  for (void* piece : found)
    pieces.emplace_back(static_cast<CQdrGePolyline2d*>(piece));
  return pieces;
}

void printOffset(const Options& options, const char* direction, const Pieces& pieces) {
  if (!options.asJson) {
    for (const auto& piece : pieces)
      std::cout << qdr_tools::polylineText(*piece) << "\n";
    return;
  }
  json list = json::array();
  for (const auto& piece : pieces)
    list.push_back(toJson(*piece));
  printJson(
      {{"distance", options.distance}, {"direction", direction}, {"pieces", std::move(list)}});
}

int runOffset(const Options& options) {
  CQdrGePolyline2d shape;
  CQdrGePoint2d side;
  if (!(options.distance >= 0 && options.distance <= qdr_tools::kMaxNumber))
    return refuse("the distance is out of range", qdr_tools::kUsage);
  if (const int trouble = readShape(options.shape, shape)) return trouble;
  if (const int trouble = readSide(options, shape, side)) return trouble;
  const Pieces pieces = offsetPieces(shape, side, options);
  const int direction = shape.getoffsetDirection(side, options.distance);
  printOffset(options, direction > 0 ? "left" : "right", pieces);

  ShapePicture picture;
  picture.strokes.push_back({&shape, kSourceColor, true});
  for (const auto& piece : pieces) {
    const std::size_t color = (picture.strokes.size() - 1) % std::size(kPieceColors);
    picture.strokes.push_back({piece.get(), kPieceColors[color], true});
  }
  if (const int trouble = savePicture(picture, options.picture)) return trouble;
  if (!pieces.empty()) return qdr_tools::kSound;
  return refuse("nothing of the offset remains", qdr_tools::kNoResult);
}

// -------------------------------------------------------------------------------------- cross

const std::map<std::string, CQdrGeEntity2d::Intersect> kExtensions = {
    {"none", CQdrGeEntity2d::kExtendNone},
    {"first", CQdrGeEntity2d::kExtendThis},
    {"second", CQdrGeEntity2d::kExtendArg},
    {"both", CQdrGeEntity2d::kExtendBoth}};

json crossingJson(const CQdrGePolyline2d& first, const CQdrGePolyline2d& second,
                  const CQdrGePoint2d& point) {
  return {{"point", toJson(point)},
          {"first", first.paramAtPoint(point, qdr::kSameHitTolerance)},
          {"second", second.paramAtPoint(point, qdr::kSameHitTolerance)}};
}

int runCross(const Options& options) {
  CQdrGePolyline2d first;
  CQdrGePolyline2d second;
  if (options.shape == "-" && options.other == "-")
    return refuse("standard input holds one shape", qdr_tools::kUsage);
  if (const int trouble = readShape(options.shape, first)) return trouble;
  if (const int trouble = readShape(options.other, second)) return trouble;
  int count = 0;
  std::vector<CQdrGePoint2d> points;
  first.intersectWith(second, count, points, kExtensions.at(options.extend), qdr::kCurveTolerance);

  json list = json::array();
  for (const CQdrGePoint2d& point : points) {
    if (options.asJson) list.push_back(crossingJson(first, second, point));
    if (!options.asJson) std::cout << pointText(point) << "\n";
  }
  if (options.asJson) printJson({{"crossings", std::move(list)}});

  ShapePicture picture;
  picture.strokes = {{&first, kSourceColor, false}, {&second, kOtherColor, false}};
  for (const CQdrGePoint2d& point : points)
    picture.marks.push_back({point, kMarkColor});
  if (const int trouble = savePicture(picture, options.picture)) return trouble;
  return points.empty() ? refuse("no crossing", qdr_tools::kNoResult) : qdr_tools::kSound;
}

// ------------------------------------------------------------------------------------ measure

// Signed area of a closed shape: that of its vertices and, beside each chord, that of the circular
// segment, r^2 (w - sin w) / 2 for a sweep of w.
double areaOf(const CQdrGePolyline2d& shape) {
  const auto& points = shape.points();
  const CQdrGePoint2d origin = points.front();
  double area = 0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const CQdrGeVector2d a = points[i] - origin;
    const CQdrGeVector2d b = points[(i + 1) % points.size()] - origin;
    area += (a.x * b.y - a.y * b.x) / 2;
    const double bulge = shape.getBulgeAt(static_cast<int>(i));
    if (std::abs(bulge) <= qdr::kBulgeTolerance) continue;
    const double sweep = 4 * std::atan(bulge);
    const double radius = (b - a).length() * (1 + bulge * bulge) / (4 * bulge);
    area += radius * radius * (sweep - std::sin(sweep)) / 2;
  }
  return area;
}

// Everything measured, in the order it is printed in.
nlohmann::ordered_json measuresOf(const CQdrGePolyline2d& shape) {
  CQdrGePoint2d min;
  CQdrGePoint2d max;
  shape.getMinMaxpoint(min, max);
  nlohmann::ordered_json answer = {
      {"vertices", shape.numVerts()}, {"closed", shape.closed()}, {"length", shape.length()}};
  if (shape.closed()) answer["area"] = areaOf(shape);
  answer["min"] = {min.x, min.y};
  answer["max"] = {max.x, max.y};
  return answer;
}

void addPlaceMeasures(const CQdrGePolyline2d& shape, const CQdrGePoint2d& place,
                      nlohmann::ordered_json& answer) {
  const CQdrGePoint2d closest = shape.closestPointTo(place, qdr::kCurveTolerance);
  answer["inside"] = shape.isInsidePoint(place);
  answer["closest"] = {closest.x, closest.y};
  answer["distance"] = closest.distanceTo(place);
  answer["parameter"] = shape.paramAtPoint(closest, qdr::kSameHitTolerance);
}

std::string measureText(const nlohmann::ordered_json& value) {
  if (value.is_array()) return pointText({value[0], value[1]});
  return value.is_number_float() ? numberText(value) : value.dump();
}

int runMeasure(const Options& options) {
  CQdrGePolyline2d shape;
  if (const int trouble = readShape(options.shape, shape)) return trouble;
  nlohmann::ordered_json answer = measuresOf(shape);
  ShapePicture picture;
  picture.strokes.push_back({&shape, kSourceColor, true});
  if (!options.place.empty()) {
    CQdrGePoint2d place;
    if (const auto fault = qdr_tools::parsePoint(options.place, place))
      return refuse("place: " + placeOf(*fault), qdr_tools::kUsage);
    addPlaceMeasures(shape, place, answer);
    picture.marks = {{place, kOtherColor},
                     {shape.closestPointTo(place, qdr::kCurveTolerance), kMarkColor}};
  }
  if (options.asJson) {
    std::cout << answer.dump(2) << "\n";
  } else {
    for (const auto& [name, value] : answer.items())
      std::cout << name << ": " << measureText(value) << "\n";
  }
  return savePicture(picture, options.picture);
}

// -------------------------------------------------------------------------------- command line

using Run = int (*)(const Options&);

CLI::App* addVerb(CLI::App& shape, const char* name, const char* what,
                  const std::shared_ptr<Options>& options, Run run, int& exitCode) {
  CLI::App* verb = shape.add_subcommand(name, what);
  verb->add_option("SHAPE", options->shape, kShapeHelp)->required();
  verb->add_flag("--json", options->asJson, "Answer as JSON");
  verb->add_option("-o,--output", options->picture, "Draw it as well: a name in .png or .svg")
      ->check([](const std::string& path) {
        return qdr_tools::namesPicture(path) ? "" : "a picture is named .png or .svg";
      });
  verb->callback([options, run, &exitCode] { exitCode = run(*options); });
  return verb;
}

}  // namespace

void qdr_tools::addShape(CLI::App& app, int& exitCode) {
  const auto options = std::make_shared<Options>();
  CLI::App* shape = app.add_subcommand("shape", "Offset, cross or measure polylines given as text");
  shape->require_subcommand(1);

  CLI::App* offset = addVerb(*shape, "offset", "The curves at a distance on one side", options,
                             runOffset, exitCode);
  offset->add_option("-d,--distance", options->distance, "How far away")->required();
  offset->add_option("-s,--side", options->side, "left, right, or a place X,Y on the side wanted")
      ->required();
  CLI::Option* both = offset->add_flag("--both", options->both, "On the other side as well");
  offset->add_flag("--longest", options->longest, "The piece of most vertices alone")
      ->excludes(both);

  CLI::App* cross =
      addVerb(*shape, "cross", "Where two polylines meet", options, runCross, exitCode);
  cross->add_option("OTHER", options->other, "The second shape, given like the first")->required();
  cross->add_option("--extend", options->extend, "Segments of which shape go on beyond their ends")
      ->check(CLI::IsMember({"none", "first", "second", "both"}));

  CLI::App* measure = addVerb(*shape, "measure", "Length, area and bounds of a polyline", options,
                              runMeasure, exitCode);
  measure->add_option("--at", options->place, "Measure from this place X,Y to the shape as well");
}
