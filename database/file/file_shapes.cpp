#include "database/file/file_shapes.h"

#include <array>

#include "database/object.h"

namespace qdr {

namespace {

using enum FieldKind;

constexpr std::uint8_t kPlain = CQdrDbObject::eEntity;
constexpr std::uint8_t kCompound = CQdrDbObject::eEntity | CQdrDbObject::eCompound;
constexpr std::uint8_t kDimension = CQdrDbObject::eDimension;

// Elements of lists.
constexpr FieldShape kDash[] = {{real, "dash"}};
constexpr FieldShape kPoint[] = {{point, "point"}};
constexpr FieldShape kOption[] = {{byte, "option"}};
constexpr FieldShape kSymPoint[] = {{point, "point"}, {byte, "pen mode"}};
constexpr FieldShape kBoundary[] = {{boundary, "boundary"}};
constexpr FieldShape kCell[] = {{body, "cell", 1, {}, QdrDb::eClassText}};
constexpr FieldShape kVertex[] = {
    {point, "vertex"}, {real, "bulge"}, {real, "start width"}, {real, "end width"}};
static_assert(fixedBytes(kSymPoint) == 21);
static_assert(fixedBytes(kVertex) == 44);

// Records, behind head and name.
constexpr FieldShape kColor[] = {{units, "colour name", 10}, {number, "value"}, {byte, "modified"}};
constexpr FieldShape kLinetype[] = {{countSigned, "dash count"},
                                    {repeat, "dashes", 1, kDash},
                                    {real, "pattern length"},
                                    {units, "description", 81}};
constexpr FieldShape kLayer[] = {
    {shortInt, "status"}, {color, "colour"}, {linetype, "linetype"}, {number, "line weight"}};
constexpr FieldShape kTextStyle[] = {{byte, "flags"},
                                     {real, "size"},
                                     {real, "width factor"},
                                     {real, "oblique angle"},
                                     {real, "prior size"},
                                     {units, "font file", 81},
                                     {units, "big font file", 81},
                                     {units, "face", 81},
                                     {byte, "first font flag"},
                                     {byte, "second font flag"},
                                     {number, "first font number"},
                                     {number, "second font number"}};
constexpr FieldShape kSymbol[] = {
    {point3d, "base"}, {count32, "point count"}, {repeat, "points", 1, kSymPoint}};
constexpr FieldShape kProjectInfo[] = {
    {number, "first number"}, {number, "second number"}, {units, "text", 81}};
constexpr FieldShape kRevision[] = {{number, "number"},
                                    {units, "first text", 82},
                                    {units, "second text", 256},
                                    {units, "third text", 256}};
constexpr FieldShape kProjectTexts[] = {{units, "first text", 81}, {units, "second text", 81}};
constexpr FieldShape kNextNumber[] = {{number, "next number"}};
static_assert(kRecordStartBytes + fixedBytes(kColor) == 200);
static_assert(kRecordStartBytes + fixedBytes(kLinetype) == 349);
static_assert(kRecordStartBytes + fixedBytes(kLayer) == 197);
static_assert(kRecordStartBytes + fixedBytes(kTextStyle) == 704);
static_assert(kRecordStartBytes + fixedBytes(kSymbol) == 203);
static_assert(kRecordStartBytes + fixedBytes(kProjectInfo) == 345);
static_assert(kRecordStartBytes + fixedBytes(kRevision) == 1367);

constexpr TableShape kTables[kTableCount] = {
    {TableKind::colors, "colour", QdrDb::eClassColorTableRecord, {}, kColor, {}},
    {TableKind::linetypes, "linetype", QdrDb::eClassLTypeTableRecord, {}, kLinetype, {}},
    {TableKind::layers, "layer", QdrDb::eClassLayerTableRecord, {}, kLayer, {}},
    {TableKind::textStyles, "text style", QdrDb::eClassTextStyleTableRecord, {}, kTextStyle, {}},
    {TableKind::symbols, "symbol", QdrDb::eClassSymbolTableRecord, {}, kSymbol, kNextNumber},
    {TableKind::projectInfo, "project info", QdrDb::eClassProjectInfoTableRecord, kProjectTexts,
     kProjectInfo, kNextNumber},
    {TableKind::revisions,
     "revision",
     QdrDb::eClassRevisionTableRecord,
     {},
     kRevision,
     kNextNumber},
    {TableKind::blocks, "block", QdrDb::eClassBlockTableRecord, {}, {}, {}},
};

// Own fields of entities.
constexpr FieldShape kArc[] = {
    {real, "radius"}, {real, "start angle"}, {real, "end angle"}, {point, "centre"}};
constexpr FieldShape kEllipse[] = {
    {point, "centre"},      {vector, "minor axis"}, {vector, "major axis"}, {real, "major radius"},
    {real, "minor radius"}, {real, "start angle"},  {real, "end angle"},    {byte, "clockwise"}};
constexpr FieldShape kLine[] = {{point, "start"}, {point, "end"}};
constexpr FieldShape kPolyline[] = {{count32, "vertex count"},
                                    {byte, "closed"},
                                    {repeat, "vertices", 1, kVertex},
                                    {byte, "fill"},
                                    {number, "fill mode"}};
constexpr FieldShape kSpline[] = {
    {real, "fit parameter"},   {count32, "point count"}, {repeat, "points", 1, kPoint},
    {count32, "vertex count"}, {byte, "closed"},         {repeat, "vertices", 1, kVertex}};
constexpr FieldShape kCSpline[] = {{byte, "closed"},
                                   {count32, "point count"},
                                   {repeat, "points", 1, kPoint},
                                   {repeat, "options", 1, kOption}};
constexpr FieldShape kSpiral[] = {{real, "largest radius"},
                                  {real, "smallest radius"},
                                  {real, "pitch"},
                                  {real, "start angle"},
                                  {number, "chords per turn"},
                                  {point, "centre"},
                                  {count32, "vertex count"},
                                  {byte, "closed"},
                                  {repeat, "vertices", 1, kVertex}};
constexpr FieldShape kCobweb[] = {{number, "wings"},
                                  {vector, "centre"},
                                  {real, "inner radius"},
                                  {real, "outer radius"},
                                  {real, "rotation"}};
constexpr FieldShape kInsert[] = {{units, "block name", 81},
                                  {real, "rotation"},
                                  {real, "slant"},
                                  {point, "position"},
                                  {vector, "scale"}};
constexpr FieldShape kHatch[] = {{units, "pattern", 32},
                                 {point, "base"},
                                 {real, "scale"},
                                 {real, "rotation"},
                                 {count16, "boundary count"},
                                 {repeat, "boundaries", 1, kBoundary}};
constexpr FieldShape kPointEntity[] = {
    {real, "size"}, {byte, "fill"}, {byte, "flag"}, {point, "position"}};
constexpr FieldShape kText[] = {{units, "string", 256},
                                {point, "position"},
                                {point, "align point"},
                                {real, "height"},
                                {real, "width factor"},
                                {real, "oblique angle"},
                                {real, "rotation"},
                                {shortInt, "horizontal alignment"},
                                {shortInt, "vertical alignment"},
                                {byte, "box"},
                                {byte, "outline font"},
                                {style, "text style"}};
constexpr FieldShape kRect[] = {{real, "top"}, {real, "bottom"}, {real, "left"}, {real, "right"}};
constexpr FieldShape kBox[] = {
    {point, "base"}, {real, "width"}, {real, "height"}, {real, "rotation"}};
static_assert(fixedBytes(kArc) == 44);
static_assert(fixedBytes(kEllipse) == 85);
static_assert(fixedBytes(kLine) == 40);
static_assert(fixedBytes(kPolyline) == 10);
static_assert(fixedBytes(kSpline) == 17);
static_assert(fixedBytes(kCSpline) == 5);
static_assert(fixedBytes(kSpiral) == 61);
static_assert(fixedBytes(kCobweb) == 44);
static_assert(fixedBytes(kInsert) == 214);
static_assert(fixedBytes(kHatch) == 102);
static_assert(fixedBytes(kPointEntity) == 30);
static_assert(fixedBytes(kText) == 598);
static_assert(fixedBytes(kRect) == 32);
static_assert(fixedBytes(kBox) == 44);

// Every dimension begins with the same fields.
#define QDR_DIMENSION_BASE                                                     \
  {number, "dimension type"}, {real, "text rotation"}, {number, "text moved"}, \
      {point, "text position"}, {vector, "text offset"}, {                     \
    units, "dimension text", 256                                               \
  }

constexpr FieldShape kDimensionBase[] = {QDR_DIMENSION_BASE};
constexpr FieldShape k2LineAngular[] = {QDR_DIMENSION_BASE,      {point, "first point"},
                                        {point, "second point"}, {point, "third point"},
                                        {point, "fourth point"}, {point, "fifth point"},
                                        {point, "sixth point"}};
constexpr FieldShape k3PointAngular[] = {
    QDR_DIMENSION_BASE, {point, "centre"}, {point, "start"}, {point, "end"}, {point, "arc point"}};
constexpr FieldShape kAligned[] = {QDR_DIMENSION_BASE,
                                   {point, "start"},
                                   {point, "end"},
                                   {point, "line point"},
                                   {real, "oblique angle"}};
constexpr FieldShape kRadial[] = {
    QDR_DIMENSION_BASE, {point, "centre"}, {point, "chord point"}, {real, "leader length"}};
constexpr FieldShape kAlignedAgain[] = {
    QDR_DIMENSION_BASE, {bodyAgain, "aligned dimension", 1, {}, QdrDb::eClassAlignedDimension}};
constexpr FieldShape kLeader[] = {QDR_DIMENSION_BASE,         {byte, "first flag"},
                                  {byte, "second flag"},      {byte, "third flag"},
                                  {vector, "text direction"}, {point, "definition point"},
                                  {point, "lead end"}};
#undef QDR_DIMENSION_BASE
static_assert(fixedBytes(kDimensionBase) == 564);
static_assert(fixedBytes(k2LineAngular) == 684);
static_assert(fixedBytes(k3PointAngular) == 644);
static_assert(fixedBytes(kAligned) == 632);
static_assert(fixedBytes(kRadial) == 612);
static_assert(fixedBytes(kLeader) == 623);
static_assert(2 * kBodyStartBytes + fixedBytes(kAlignedAgain) + fixedBytes(kAligned) == 1274);

constexpr FieldShape kSymbolEntity[] = {
    {units, "symbol name", 81}, {point, "position"},       {vector, "direction"},
    {point, "midpoint"},        {vector, "mid direction"}, {vector, "scale"},
    {real, "rotation"},         {real, "second angle"},    {byte, "flag"}};
constexpr FieldShape kTextTable[] = {
    {count16, "cell count"},   {repeat, "cells", 1, kCell}, {point, "first corner"},
    {point, "second corner"},  {point, "third corner"},     {point, "fourth corner"},
    {units, "table name", 33}, {real, "row height"},        {number, "row"},
    {number, "rows"},          {byte, "first flag"},        {byte, "second flag"}};
static_assert(fixedBytes(kSymbolEntity) == 267);
static_assert(fixedBytes(kTextTable) == 166);

constexpr EntityShape kEntities[] = {
    {QdrDb::eClassArc, "arc", kPlain, true, kArc},
    {QdrDb::eClassCircle, "circle", kPlain, true, kArc},
    {QdrDb::eClassEllipse, "ellipse", kPlain, true, kEllipse},
    {QdrDb::eClassEllipseArc, "ellipse arc", kPlain, true, kEllipse},
    {QdrDb::eClassLine, "line", kPlain, true, kLine},
    {QdrDb::eClassPolyline, "polyline", kCompound, true, kPolyline},
    {QdrDb::eClassSpline, "spline", kCompound, true, kSpline},
    {QdrDb::eClassCSpline, "cubic spline", kCompound, true, kCSpline},
    {QdrDb::eClassSpiral, "spiral", kCompound, true, kSpiral},
    {QdrDb::eClassCobweb, "cobweb", kPlain, false, kCobweb},
    {QdrDb::eClassBlockInsert, "block insert", kCompound, true, kInsert},
    {QdrDb::eClassHatch, "hatch", kPlain, true, kHatch},
    {QdrDb::eClassPoint, "point", kPlain, true, kPointEntity},
    {QdrDb::eClassText, "text", kPlain, true, kText},
    {QdrDb::eClassRect, "rectangle", kPlain, true, kRect},
    {QdrDb::eClass2LineAngularDimension, "two line angular dimension", kDimension, true,
     k2LineAngular},
    {QdrDb::eClass3PointAngularDimension, "three point angular dimension", kDimension, true,
     k3PointAngular},
    {QdrDb::eClassAlignedDimension, "aligned dimension", kDimension, true, kAligned},
    {QdrDb::eClassDiametricDimension, "diametric dimension", kDimension, true, kRadial},
    {QdrDb::eClassHorizontalDimension, "horizontal dimension", kDimension, true, kAlignedAgain},
    {QdrDb::eClassLeaderDimension, "leader dimension", kDimension, true, kLeader},
    {QdrDb::eClassRadialDimension, "radial dimension", kDimension, true, kRadial},
    {QdrDb::eClassVerticalDimension, "vertical dimension", kDimension, true, kAlignedAgain},
    {QdrDb::eClassBox, "box", kPlain, true, kBox},
    {QdrDb::eClassSymbol, "symbol", kCompound, true, kSymbolEntity},
    {QdrDb::eClassTextTable, "text table", kPlain, true, kTextTable},
};

constexpr auto kEntityByType = [] {
  std::array<const EntityShape*, QdrDb::eClassTextTable + 1> shapes{};
  for (const EntityShape& shape : kEntities) {
    shapes[static_cast<std::size_t>(shape.type)] = &shape;
  }
  return shapes;
}();

}  // namespace

const TableShape& tableShape(TableKind kind) {
  return kTables[static_cast<std::size_t>(kind)];
}

const EntityShape* entityShape(std::int32_t type) {
  const auto index = static_cast<std::uint32_t>(type);
  return index < kEntityByType.size() ? kEntityByType[index] : nullptr;
}

}  // namespace qdr
