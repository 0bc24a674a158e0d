// Draws a sheet with every class of entity in its states, through the class interface, and a second
// one with the shapes of points, which a drawing file does not keep.
// usage: make_gallery GALLERY.kov MARKERS.svg

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <fstream>
#include <numbers>
#include <set>
#include <vector>

#include "qdr.h"

namespace {

using Points = std::vector<CQdrGePoint2d>;

constexpr double kTurn = 2.0 * std::numbers::pi;
constexpr double kDegree = kTurn / 360.0;

// Colours of the palette.
constexpr int kRed = 1;
constexpr int kGreen = 94;
constexpr int kBlue = 5;
constexpr int kOrange = 30;
constexpr int kGrey = 253;

// The sheet: a frame with cells of equal size, counted from 0 at the left top along the rows.
constexpr double kLeft = 12.0;
constexpr double kBottom = 12.0;
constexpr double kCellWidth = 66.0;
constexpr double kCellHeight = 54.0;
constexpr int kColumns = 6;
constexpr int kRows = 5;
constexpr double kRight = kLeft + kColumns * kCellWidth;
constexpr double kTop = kBottom + kRows * kCellHeight;

// Middle of a cell.
CQdrGePoint2d cell(int number) {
  const int row = number / kColumns;
  const int column = number % kColumns;
  return {kLeft + (column + 0.5) * kCellWidth, kTop - (row + 0.5) * kCellHeight};
}

CQdrGePoint2d at(int number, double dx, double dy) {
  return cell(number) + CQdrGeVector2d(dx, dy);
}

CQdrGePoint2d polar(const CQdrGePoint2d& center, double radius, double degrees) {
  return center + CQdrGeVector2d(degrees * kDegree) * radius;
}

// A drawing under work. What is added takes its looks from the members.
class Sheet {
 public:
  explicit Sheet(CQdrDbDatabase& database) : m_database(database) {}

  template <class Entity>
  Entity* add(Entity* entity) {
    CQdrDbObjectId id;
    m_database.addEntity(entity, id);
    entity->setColor(color);
    entity->setLineType(lineType);
    entity->setLineWeight(static_cast<QdrDb::LineWeight>(weight));
    return entity;
  }

  void line(const CQdrGePoint2d& from, const CQdrGePoint2d& to) { add(new CQdrDbLine(from, to)); }

  CQdrDbPolyline* chain(const Points& points, const std::vector<double>& bulges, bool closed) {
    auto* polyline = new CQdrDbPolyline();
    polyline->SetVertexes(&points, &bulges);
    if (closed) polyline->SetClosed(true);
    // Closing forms a bulge of its own.
    if (closed) polyline->SetBulgeAt(polyline->NumVerts() - 1, bulges.back());
    return add(polyline);
  }
  CQdrDbPolyline* straight(const Points& points, bool closed) {
    return chain(points, std::vector<double>(points.size(), 0.0), closed);
  }

  void looks(int newColor, int newWeight, const wchar_t* newLineType = L"ByLayer") {
    color = newColor;
    weight = newWeight;
    lineType = newLineType;
  }
  void plainLooks() { looks(256, 25); }

  CQdrDbDatabase& database() { return m_database; }

  int color = 256;
  int weight = 25;
  const wchar_t* lineType = L"ByLayer";

 private:
  CQdrDbDatabase& m_database;
};

struct LineTypeRow {
  const wchar_t* name;
  std::vector<double> dashes;
};

const LineTypeRow kLineTypes[] = {
    {L"Dashed", {4.0, -2.0}},
    {L"Center", {8.0, -1.5, 1.5, -1.5}},
    {L"Phantom", {10.0, -1.5, 1.5, -1.5, 1.5, -1.5}},
    {L"Divide", {5.0, -1.5, 0.0, -1.5, 0.0, -1.5}},
    {L"Dot", {0.0, -1.5}},
};

void addLineTypes(CQdrDbDatabase& database) {
  for (const LineTypeRow& row : kLineTypes) {
    auto* record = new CQdrDbLTypeTableRecord(&database);
    record->setName(row.name);
    record->setDashes(row.dashes);
    record->setOwnerId(database.LinetypeTable());
    database.m_linetypeTable.add(record);
  }
}

// The record of a colour is made when something takes it.
CQdrDbObjectId colorRecord(CQdrDbDatabase& database, int color) {
  CQdrDbLine taker(CQdrGePoint2d::kOrigin, CQdrGePoint2d::kOrigin);
  taker.setDatabase(&database);
  taker.setColor(color);
  return taker.ColorId();
}

void addLayer(CQdrDbDatabase& database, const wchar_t* name, int color, const wchar_t* lineType,
              int weight) {
  auto* layer = new CQdrDbLayerTableRecord(&database);
  layer->setName(name);
  layer->setOwnerId(database.LayerTable());
  CQdrDbObjectId id;
  database.m_linetypeTable.getAt(lineType, id);
  layer->setLinetypeId(id);
  layer->setColorId(colorRecord(database, color));
  layer->setLineWeight(static_cast<QdrDb::LineWeight>(weight));
  database.m_layerTable.add(layer);
}

void drawFrame(Sheet& sheet) {
  sheet.looks(256, 70);
  sheet.add(new CQdrDbRect(CQdrGePoint2d(kLeft, kTop), CQdrGePoint2d(kRight, kBottom)));
  sheet.looks(kGrey, 0);
  for (int column = 1; column < kColumns; ++column) {
    const double x = kLeft + column * kCellWidth;
    sheet.line({x, kBottom}, {x, kTop});
  }
  for (int row = 1; row < kRows; ++row) {
    const double y = kBottom + row * kCellHeight;
    sheet.line({kLeft, y}, {kRight, y});
  }
  sheet.plainLooks();
}

void drawLineTypes(Sheet& sheet, int number) {
  const wchar_t* const names[] = {L"CONTINUOUS", L"Hidden", L"Dashed", L"Center",
                                  L"Phantom",    L"Divide", L"Dot"};
  double y = 18.0;
  for (const wchar_t* name : names) {
    sheet.lineType = name;
    sheet.line(at(number, -26, y), at(number, 26, y));
    y -= 6.0;
  }
  sheet.plainLooks();
}

void drawLineWeights(Sheet& sheet, int number) {
  double y = 19.0;
  for (const int weight : {0, 13, 18, 25, 35, 53, 70, 100, 140, 211}) {
    sheet.weight = weight;
    sheet.line(at(number, -26, y), at(number, 26, y));
    y -= 3.4 + weight / 150.0;
  }
  sheet.plainLooks();
}

void drawColors(Sheet& sheet, int number) {
  constexpr int kRays = 24;  // the hues of the palette stand ten apart
  sheet.weight = 70;
  for (int i = 0; i < kRays; ++i) {
    const double degrees = i * 360.0 / kRays;
    sheet.color = 10 + 10 * i;
    sheet.line(polar(cell(number), 6, degrees), polar(cell(number), 21, degrees));
  }
  sheet.plainLooks();
}

void drawArcs(Sheet& sheet, int number) {
  for (int i = 0; i < 7; ++i) {
    sheet.color = i % 2 == 0 ? 256 : kRed;
    const double start = 45.0 * i;
    sheet.add(
        new CQdrDbArc(cell(number), 4.0 + 3.0 * i, start * kDegree, (start + 270.0) * kDegree));
  }
  sheet.plainLooks();
}

void drawCircles(Sheet& sheet, int number) {
  const CQdrGePoint2d center = cell(number);
  sheet.looks(256, 70);
  sheet.add(new CQdrDbCircle(center, 21.0));
  sheet.looks(kRed, 13, L"Center");
  sheet.add(new CQdrDbCircle(center, 15.0));
  sheet.line(at(number, -25, 0), at(number, 25, 0));
  sheet.line(at(number, 0, -25), at(number, 0, 25));
  sheet.plainLooks();
  for (int i = 0; i < 6; ++i)
    sheet.add(new CQdrDbCircle(polar(center, 15, 30.0 + 60.0 * i), 3.0));
  sheet.looks(kBlue, 25, L"Hidden");
  sheet.add(new CQdrDbCircle(center, 8.0));
  sheet.plainLooks();
}

// Sizes of their own and that of the drawing, hollow and filled.
void drawPoints(Sheet& sheet, int number) {
  for (const bool filled : {false, true}) {
    sheet.color = filled ? kBlue : 256;
    double x = -24.0;
    for (const double size : {0.0, 2.0, 3.0, 4.5, 6.5}) {
      auto* point = sheet.add(new CQdrDbPoint(at(number, x, filled ? -9.0 : 9.0)));
      point->SetSize(size);
      point->SetFillMode(filled);
      x += 6.0 + 2.2 * size;
    }
  }
  sheet.plainLooks();
}

void drawRectangles(Sheet& sheet, int number) {
  struct Row {
    double halfWidth, halfHeight;
    int color, weight;
    const wchar_t* lineType;
  };
  const Row rows[] = {{26, 20, 256, 70, L"ByLayer"},
                      {22, 16, 256, 13, L"ByLayer"},
                      {18, 12, kBlue, 25, L"Hidden"},
                      {14, 8, kRed, 13, L"Center"},
                      {10, 4, kGreen, 140, L"ByLayer"}};
  for (const Row& row : rows) {
    sheet.looks(row.color, row.weight, row.lineType);
    sheet.add(new CQdrDbRect(at(number, -row.halfWidth, row.halfHeight),
                             at(number, row.halfWidth, -row.halfHeight)));
  }
  sheet.plainLooks();
}

void drawTurnedBoxes(Sheet& sheet, int number) {
  for (int i = 0; i < 6; ++i) {
    const double angle = 15.0 * i * kDegree;
    const CQdrGeVector2d along = CQdrGeVector2d(angle) * 16.0;
    sheet.color = i == 0 ? kRed : 256;
    sheet.add(new CQdrDbBox(cell(number) - along - along.perpVector(), 32.0, 32.0, angle));
  }
  sheet.plainLooks();
}

// Width and height of either sign about one base point.
void drawBoxSigns(Sheet& sheet, int number) {
  for (const double width : {20.0, -20.0}) {
    for (const double height : {12.0, -12.0}) {
      sheet.color = width * height > 0.0 ? kBlue : kOrange;
      sheet.add(new CQdrDbBox(cell(number), width, height, 30.0 * kDegree));
    }
  }
  sheet.plainLooks();
  sheet.add(new CQdrDbBox(at(number, -27, -21), 54.0, 42.0, 0.0));
}

void drawTurnedEllipses(Sheet& sheet, int number) {
  for (int i = 0; i < 6; ++i) {
    sheet.color = i % 3 == 0 ? kRed : i % 3 == 1 ? kBlue : 256;
    sheet.add(new CQdrDbEllipse(cell(number), CQdrGeVector2d(30.0 * i * kDegree) * 22.0, 0.3));
  }
  sheet.plainLooks();
}

void drawEllipseRatios(Sheet& sheet, int number) {
  for (const double ratio : {0.12, 0.3, 0.48, 0.66, 0.84}) {
    sheet.lineType = ratio == 0.48 ? L"Hidden" : L"ByLayer";
    sheet.weight = ratio > 0.8 ? 70 : 25;
    sheet.add(new CQdrDbEllipse(cell(number), CQdrGeVector2d(26.0, 0.0), ratio));
  }
  sheet.plainLooks();
}

void drawEllipticArcs(Sheet& sheet, int number) {
  for (int i = 0; i < 6; ++i) {
    sheet.color = i % 2 == 0 ? 256 : kBlue;
    const double start = 60.0 * i;
    sheet.add(new CQdrDbEllipseArc(cell(number), CQdrGeVector2d(8.0 + 3.8 * i, 0.0), 0.8,
                                   start * kDegree, (start + 270.0) * kDegree));
  }
  sheet.plainLooks();
}

void drawOpenChains(Sheet& sheet, int number) {
  Points zigzag;
  for (int i = 0; i <= 12; ++i)
    zigzag.push_back(at(number, -24.0 + 4.0 * i, i % 2 == 0 ? 10.0 : 20.0));
  sheet.straight(zigzag, false);
  Points wave;
  std::vector<double> bulges;
  for (int i = 0; i <= 6; ++i) {
    wave.push_back(at(number, -24.0 + 8.0 * i, 0.0));
    bulges.push_back(i % 2 == 0 ? 1.0 : -1.0);
  }
  sheet.color = kBlue;
  sheet.chain(wave, bulges, false);
  // Half, quarter and nearly whole circles between ends of one height.
  sheet.color = kRed;
  sheet.chain({at(number, -24, -17), at(number, -12, -17), at(number, 0, -17), at(number, 12, -17),
               at(number, 24, -17)},
              {-0.2, -0.5, -1.0, -1.6, 0.0}, false);
  sheet.plainLooks();
}

void drawClosedChains(Sheet& sheet, int number) {
  Points star;
  for (int i = 0; i < 10; ++i)
    star.push_back(polar(at(number, -13, 0), i % 2 == 0 ? 15.0 : 6.0, 90.0 + 36.0 * i));
  sheet.straight(star, true);
  sheet.weight = 53;
  sheet.chain({at(number, 9, 12), at(number, 9, -12), at(number, 23, -12), at(number, 23, 12)},
              {0.0, 1.0, 0.0, 1.0}, true);
  sheet.looks(kRed, 25);
  sheet.chain({at(number, 12, 0), at(number, 20, 0)}, {1.0, 1.0}, true);
  sheet.plainLooks();
}

void drawSolidFills(Sheet& sheet, int number) {
  const int colors[] = {kRed, kOrange, kGreen, kBlue, 200, kGrey};
  for (int i = 0; i < 6; ++i) {
    const CQdrGePoint2d center = at(number, -19.0 + 19.0 * (i % 3), i < 3 ? 11.0 : -11.0);
    Points corners;
    for (int k = 0; k < i + 3; ++k)
      corners.push_back(polar(center, 8.0, 90.0 + k * 360.0 / (i + 3)));
    sheet.color = colors[i];
    sheet.straight(corners, true)->SetFill(true);
  }
  sheet.plainLooks();
}

void drawHatchedFills(Sheet& sheet, int number) {
  for (int i = 0; i < 6; ++i) {
    const CQdrGePoint2d corner = at(number, -27.0 + 19.0 * (i % 3), i < 3 ? 3.0 : -19.0);
    CQdrDbPolyline* const tile =
        sheet.straight({corner, corner + CQdrGeVector2d(16, 0), corner + CQdrGeVector2d(16, 16),
                        corner + CQdrGeVector2d(0, 16)},
                       true);
    tile->SetFill(true);
    tile->SetFillMode(i + 1);
  }
}

// A start width above 0 hides the segment that ends at its vertex.
void drawHiddenSegments(Sheet& sheet, int number) {
  for (int ring = 0; ring < 4; ++ring) {
    Points points;
    const int sides = 24;
    for (int k = 0; k < sides; ++k)
      points.push_back(polar(cell(number), 8.0 + 4.5 * ring, k * 360.0 / sides));
    CQdrDbPolyline* const loop = sheet.chain(
        points, std::vector<double>(points.size(), std::tan(kTurn / sides / 4.0)), true);
    for (int k = 0; k < sides; ++k)
      if ((k + ring) % (ring + 2) == 0) loop->SetWidthsAt(k, 1.0, 1.0);
  }
}

void drawGear(Sheet& sheet, int number) {
  constexpr int kTeeth = 16;
  constexpr double kStep = 360.0 / kTeeth;
  Points points;
  std::vector<double> bulges;
  for (int tooth = 0; tooth < kTeeth; ++tooth) {
    const double degrees = tooth * kStep;
    const std::array<CQdrGePoint2d, 4> corners = {polar(cell(number), 17, degrees),
                                                  polar(cell(number), 17, degrees + 0.44 * kStep),
                                                  polar(cell(number), 21, degrees + 0.56 * kStep),
                                                  polar(cell(number), 21, degrees + 0.88 * kStep)};
    points.insert(points.end(), corners.begin(), corners.end());
    bulges.insert(bulges.end(), {-0.1, 0.0, std::tan(0.32 * kStep * kDegree / 4.0), 0.0});
  }
  sheet.weight = 53;
  sheet.chain(points, bulges, true);
  sheet.weight = 25;
  sheet.add(new CQdrDbCircle(cell(number), 12.0));
  // A bore of radius 5 with a keyway: the arc runs round all but its mouth.
  const double mouth = std::asin(1.5 / 5.0);
  const double edge = 5.0 * std::cos(mouth);
  sheet.chain(
      {at(number, 1.5, edge), at(number, 1.5, 6.6), at(number, -1.5, 6.6), at(number, -1.5, edge)},
      {0.0, 0.0, 0.0, std::tan((kTurn - 2.0 * mouth) / 4.0)}, true);
  sheet.looks(kRed, 13, L"Center");
  sheet.line(at(number, -25, 0), at(number, 25, 0));
  sheet.line(at(number, 0, -25), at(number, 0, 25));
  sheet.plainLooks();
}

Points splineFrame(int number) {
  return {at(number, -26, -14), at(number, -16, 18), at(number, -2, -16),
          at(number, 10, 18),   at(number, 18, -10), at(number, 26, 8)};
}

void drawSpline(Sheet& sheet, int number) {
  sheet.looks(kGrey, 0);
  sheet.straight(splineFrame(number), false);
  sheet.looks(256, 35);
  auto* spline = new CQdrDbSpline(0.49);
  spline->SetCtrlVertexes(splineFrame(number));
  sheet.add(spline);
  sheet.plainLooks();
}

void drawFitParameters(Sheet& sheet, int number) {
  int i = 0;
  for (const double fit : {0.1, 0.2, 0.3, 0.4, 0.49}) {
    auto* spline = new CQdrDbSpline(fit);
    spline->SetCtrlVertexes({at(number, -25, -18), at(number, 0, 21), at(number, 25, -18)});
    sheet.color = i++ % 2 == 0 ? 256 : kBlue;
    sheet.add(spline);
  }
  sheet.plainLooks();
}

// The corner at the first vertex stays.
void drawClosedSplines(Sheet& sheet, int number) {
  for (const double size : {0.35, 0.65, 1.0}) {
    const Points drop = {at(number, 0, 22 * size), at(number, 21 * size, -4 * size),
                         at(number, 13 * size, -23 * size), at(number, -13 * size, -23 * size),
                         at(number, -21 * size, -4 * size)};
    auto* spline = new CQdrDbSpline(0.49);
    spline->SetCtrlVertexes(drop);
    spline->SetClosed(true);
    sheet.color = size == 0.65 ? kBlue : 256;
    sheet.add(spline);
  }
  sheet.plainLooks();
}

void drawCubicSpline(Sheet& sheet, int number) {
  sheet.looks(kGrey, 0);
  sheet.straight(splineFrame(number), false);
  sheet.looks(256, 35);
  sheet.add(new CQdrDbCSpline(splineFrame(number)));
  sheet.plainLooks();
}

// Breaks at every other vertex.
void drawBrokenSpline(Sheet& sheet, int number) {
  Points points;
  std::vector<unsigned char> options;
  for (int i = 0; i <= 8; ++i) {
    points.push_back(at(number, -26.0 + 6.5 * i, i % 2 == 0 ? -12.0 : 14.0));
    options.push_back(i % 2 == 0 ? 1 : 0);
  }
  auto* spline = new CQdrDbCSpline();
  spline->SetCtrlVertexes(points, options);
  sheet.color = kBlue;
  sheet.add(spline);
  sheet.plainLooks();
  auto* smooth = new CQdrDbCSpline(points);
  sheet.lineType = L"Hidden";
  sheet.add(smooth);
  sheet.plainLooks();
}

void drawClosedCubicSplines(Sheet& sheet, int number) {
  for (const double radius : {10.0, 17.0}) {
    Points points;
    for (int k = 0; k < 12; ++k)
      points.push_back(polar(cell(number), k % 2 == 0 ? radius + 4.0 : radius - 3.0, 30.0 * k));
    auto* spline = new CQdrDbCSpline(points);
    spline->SetClosed(true);
    sheet.color = radius > 15.0 ? 256 : kOrange;
    sheet.add(spline);
  }
  sheet.plainLooks();
}

void drawSpiral(Sheet& sheet, int number, int chords, double pitch, double scale) {
  sheet.add(new CQdrDbSpiral(chords, cell(number), 22.0, 1.0, pitch, 0.0, scale));
}

void drawCobwebs(Sheet& sheet, int number) {
  sheet.add(new CQdrDbCobweb(cell(number), 8.0, 21.0, 16, 0.0));
}

// A cobweb repeats what stands at its first spoke.
void drawRosette(Sheet& sheet, int number) {
  auto* web = sheet.add(new CQdrDbCobweb(cell(number), 5.0, 12.0, 6, 0.0));
  sheet.looks(kRed, 35);
  const CQdrGePoint2d tip = at(number, 22, 0);
  const CQdrGePoint2d root = polar(cell(number), 12, 30);
  const CQdrGePoint2d other = polar(cell(number), 12, -30);
  auto* petal = sheet.chain({other, tip, root}, {0.35, 0.35, 0.0}, false);
  sheet.plainLooks();
  web->SetEntity({petal->objectId()}, true);
}

// All by their layers.
void drawPart(Sheet& sheet, int number) {
  CQdrDbDatabase& database = sheet.database();
  addLayer(database, L"Outline", 7, L"CONTINUOUS", 53);
  addLayer(database, L"Hidden edges", kGreen, L"Hidden", 25);
  addLayer(database, L"Axes", kRed, L"Center", 13);
  sheet.looks(256, QdrDb::eWeightByLayer);
  const auto on = [](const wchar_t* layer, CQdrDbEntity* entity) { entity->setLayer(layer); };
  on(L"Outline",
     sheet.chain({at(number, -24, -12), at(number, 10, -12), at(number, 10, -6), at(number, 24, -6),
                  at(number, 24, 6), at(number, 10, 6), at(number, 10, 12), at(number, -24, 12)},
                 {0, 0, 0, 0, 0, 0, 0, 0}, true));
  for (const double y : {-4.0, 4.0})
    on(L"Hidden edges", sheet.add(new CQdrDbLine(at(number, -24, y), at(number, 2, y))));
  on(L"Hidden edges",
     sheet.straight({at(number, 2, 4), at(number, 4.3, 0), at(number, 2, -4)}, false));
  on(L"Axes", sheet.add(new CQdrDbLine(at(number, -28, 0), at(number, 28, 0))));
  on(L"Axes", sheet.add(new CQdrDbLine(at(number, -14, -16), at(number, -14, 16))));
  on(L"Outline", sheet.add(new CQdrDbCircle(at(number, -14, 0), 2.0)));
  sheet.plainLooks();
}

void drawGallery(CQdrDbDatabase& database) {
  constexpr std::uint8_t kDiamond = 14;
  database.m_vars.pointMode = kDiamond;
  addLineTypes(database);
  Sheet sheet(database);
  drawFrame(sheet);
  void (*const pictures[])(Sheet&, int) = {
      drawLineTypes,      drawLineWeights,    drawColors,        drawArcs,
      drawCircles,        drawPoints,         drawRectangles,    drawTurnedBoxes,
      drawBoxSigns,       drawTurnedEllipses, drawEllipseRatios, drawEllipticArcs,
      drawOpenChains,     drawClosedChains,   drawSolidFills,    drawHatchedFills,
      drawHiddenSegments, drawGear,           drawSpline,        drawFitParameters,
      drawClosedSplines,  drawCubicSpline,    drawBrokenSpline,  drawClosedCubicSplines};
  int number = 0;
  for (const auto picture : pictures)
    picture(sheet, number++);
  drawSpiral(sheet, number++, 72, 4.0, 1.0);
  drawSpiral(sheet, number++, 72, 1.5, 1.3);
  drawSpiral(sheet, number++, 6, 4.0, 1.0);
  drawCobwebs(sheet, number++);
  drawRosette(sheet, number++);
  drawPart(sheet, number++);
}

// Modes 0 to 14 from the left, hollow above and filled below.
void drawMarkers(CQdrDbDatabase& database) {
  Sheet sheet(database);
  constexpr int kModes = 15;
  for (int mode = 0; mode < kModes; ++mode) {
    for (const bool filled : {false, true}) {
      auto* point = sheet.add(new CQdrDbPoint(CQdrGePoint2d(14.0 * mode, filled ? -14.0 : 0.0)));
      point->setColor(filled ? kBlue : 256);
      // The mode of a point is 0 where it follows the drawing, whose mode 0 is a pixel.
      point->SetPdMode(mode);
      point->SetSize(5.0);
      point->SetFillMode(filled);
    }
  }
  database.m_vars.pointMode = 0;
}

qdr::HostOptions paper(CSize size) {
  qdr::HostOptions options;
  options.viewSize = size;
  options.background = 0xffffff;
  return options;
}

// A save names the folder of the file, which differs from place to place.
bool clearFolder(const char* path) {
  const decltype(QdrDbFileHeader_tag::folder) none;
  std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
  file.seekp(offsetof(QdrDbFileHeader_tag, folder));
  file.write(reinterpret_cast<const char*>(&none), sizeof none);
  file.close();
  return static_cast<bool>(file);
}

bool writeGallery(const char* path) {
  // Names and times stand still and numbers begin anew, so that every run stores the same.
  CQdrDbObject::NextHardID = 1;
  qdr::ScriptStage stage(paper({1680, 1176}), qdr::ScriptStage::Facts::fixed);
  drawGallery(stage.host().database());
  stage.host().showWindow({kLeft - 6, kBottom - 6}, {kRight + 6, kTop + 6});
  const qdr::HostAnswer saved = stage.host().save(qdr::fromUtf8(path));
  if (!saved) std::fprintf(stderr, "make_gallery: %s\n", qdr::toUtf8(saved.reason).c_str());
  return saved && clearFolder(path);
}

bool writeMarkers(const char* path) {
  const CSize size{1100, 170};
  qdr::ScriptStage stage(paper(size), qdr::ScriptStage::Facts::fixed);
  drawMarkers(stage.host().database());
  stage.host().showWindow({-12, -23}, {208, 11});
  qdr::VectorPage page;
  page.widthMillimetres = size.cx / 5.0;
  page.heightMillimetres = size.cy / 5.0;
  qdr::SvgSurface surface(page);
  qdr::drawPage(stage.host(), surface, 0xffffff);
  std::ofstream file(path, std::ios::binary);
  file << surface.document();
  file.close();
  if (!file) std::fprintf(stderr, "make_gallery: %s cannot be written\n", path);
  return static_cast<bool>(file);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: make_gallery GALLERY.kov MARKERS.svg\n");
    return 2;
  }
  return writeGallery(argv[1]) && writeMarkers(argv[2]) ? 0 : 3;
}
