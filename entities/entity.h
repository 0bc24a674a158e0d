#pragma once

#include <cstdint>
#include <initializer_list>
#include <vector>

#include "database/object.h"
#include "database/object_id.h"
#include "geometry/point2d.h"
#include "platform/export.h"
#include "platform/points.h"
#include "platform/wide_string.h"

class CDC;
class CPen;
class CQdrDbColorTableRecord;
class CQdrDbRect;
class CQdrGeCircArc2d;
class CQdrGeEllipArc2d;
class CQdrGeLine2d;
class CQdrGeMatrix2d;
class CQdrGeVector2d;
struct Return_Struct;

namespace QdrDb {
enum LineWeight : std::int32_t;
}

/// Everything that can be drawn and stored in a drawing.
///
/// Holds what all entities have in common: layer, linetype, colour and line weight; the pen built
/// from them; grips and the integer box around the entity; extended data; the mark of a hatch
/// boundary. A new entity takes the current properties of its database, which may be null. An
/// entity that stands in a drawing (IsDbEntity) is deleted by its block record, any other one by
/// whoever made it. Owns its pen and its extended data; neither is ever copied.
class QDR_API CQdrDbEntity : public CQdrDbObject {
 public:
  CQdrDbEntity(const CQdrDbEntity&) = delete;
  ~CQdrDbEntity() override;

  /// The common block behind the object head; calls no base.
  void save() override;
  /// Mirrors save. Unknown references become layer "0", linetype "ByLayer" and colour "256";
  /// extended data of an earlier reading is freed.
  void read() override;
  /// False when invisible, erased, without a layer, or when the layer is off.
  bool isVisiable() const override;
  /// Stores the database; an entity that had none takes the current properties of this one, which
  /// clears layer, extended data, boundary tag and pen.
  void setDatabase(CQdrDbDatabase* database) override;
  /// Group "General": layer, colour, linetype, line weight.
  void makeProperty() override;

  /// Box in world units; (0, 0, 0, 0) when there is nothing to enclose.
  virtual CQdrDbRect GetOutRect();
  /// To be called after an edit of the geometry is complete: hatches bounded by a curve follow.
  virtual void OnCurveChanged();
  /// Draws in the background colour. What lies under the entity is not restored.
  virtual void UnDraw(CDC* dc);
  virtual void Draw(CDC* dc);
  /// Draws with a dotted pen of width 1 in the colour of the colour record, and remembers it.
  virtual void HighlightDraw(CDC* dc);
  /// Rebuilds the grips, and the entity rectangle from GetOutRect.
  virtual void setGripPoints();
  /// 1 when the point lies on the entity within `tol`, else 0.
  virtual int isOn(const CQdrGePoint2d& point, const double& tol) = 0;
  /// Window tests over the axis-parallel rectangle of two opposite corners in any order.
  virtual bool checkInsideOrCross(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) = 0;
  virtual bool checkInside(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) = 0;
  virtual bool IsCurveEntity() const;
  virtual bool IsClosedCurve();
  virtual void OnRectChanged();
  /// Tag of a hatch boundary; 0 for entities that are no curves.
  virtual int IsBoundary() const;
  virtual void SetBoundary(int tag);

  /// Transforms dispatch to the geometry of a curve and to the own members of other classes; a
  /// class without such a member stays as it is. Grips are stale until setGripPoints runs.
  virtual CQdrDbEntity& TransformBy(const CQdrGeMatrix2d& matrix);
  virtual CQdrDbEntity& TranslateBy(const CQdrGeVector2d& vector);
  virtual CQdrDbEntity& RotateBy(double angle, const CQdrGePoint2d& center);
  virtual CQdrDbEntity& ScaleBy(double sx, double sy, const CQdrGePoint2d& center);
  virtual CQdrDbEntity& ScaleBy(double scale, const CQdrGePoint2d& center);
  virtual CQdrDbEntity& Mirror(const CQdrGeLine2d& line);

  /// Copies linetype, colour, line weight and layer; classes add their geometry.
  virtual CQdrDbEntity& operator=(const CQdrDbEntity& other);

  /// Crossings with another entity or curve. `mode` is a CQdrGeEntity2d::Intersect seen from this
  /// entity. True when there is one; `points` then holds `count` of them.
  virtual bool intersectWith(CQdrDbEntity& other, int& count, std::vector<CQdrGePoint2d>& points,
                             int mode, double tol) = 0;
  virtual bool intersectWith(const CQdrGeEllipArc2d& arc, int& count,
                             std::vector<CQdrGePoint2d>& points, int mode, double tol) = 0;
  virtual bool intersectWith(const CQdrGeCircArc2d& arc, int& count,
                             std::vector<CQdrGePoint2d>& points, int mode, double tol) = 0;
  virtual bool intersectWith(const CQdrGeLine2d& line, int& count,
                             std::vector<CQdrGePoint2d>& points, int mode, double tol) = 0;

  /// Cuts away the part that holds `pick` between the crossings with `boundaries` and records the
  /// undo steps. Answers a remainder that the caller adds to the drawing, or null.
  virtual CQdrDbEntity* Trim(const CQdrGePoint2d& pick, std::vector<CQdrDbEntity*>& boundaries,
                             double tol);
  /// Lengthens the end on the side of `pick` to a boundary and records the undo step.
  virtual bool Extend(const CQdrGePoint2d& pick, std::vector<CQdrDbEntity*>& boundaries,
                      double tol);
  /// Makes a parallel through `side` or at `distance` from this entity; the caller owns `result`,
  /// which is null on failure.
  virtual bool getOffset(const CQdrGePoint2d& side, CQdrDbEntity*& result, double distance);

  CQdrDbObjectId LayerId() const { return m_layerId; }
  CQdrDbObjectId LineTypeId() const { return m_lineTypeId; }
  CQdrDbObjectId ColorId() const { return m_colorId; }
  QdrDb::LineWeight LineWeight() const { return m_lineWeight; }

  /// Name of the layer; empty without one.
  CString Layer() const;
  /// Name of the linetype, that of the layer's where the own one is "ByLayer" in any case.
  CString LineType() const;
  /// Colour index, that of the layer's colour where the own one is 256.
  int ColorIndex() const;
  /// The colour record; null without one.
  CQdrDbColorTableRecord* Color() const;

  /// Setters move an entity of a drawing between the referring sets of the records. Those by name
  /// answer false and change nothing when the table has no such record; a colour index without a
  /// record gets one. The last flag of each has no effect.
  bool setLayer(const CQdrDbObjectId& layerId);
  bool setLayer(const CString& name);
  bool setLineType(const CQdrDbObjectId& lineTypeId, bool = true);
  bool setLineType(const CString& name, bool = true);
  bool setColor(const CQdrDbObjectId& colorId, bool = true);
  bool setColor(CQdrDbColorTableRecord* record, bool = true);
  bool setColor(int index, bool = true);
  bool setLineWeight(QdrDb::LineWeight weight, bool = true);

  /// Takes the current properties of the database and clears boundary tag, flags, pen and
  /// extended data.
  void SetEntProperty();
  /// Looks the own colour, linetype and layer up again, by name, in the present database; for an
  /// entity that came from another one. A missing colour gets a record, the others become "ByLayer"
  /// and "0".
  void SetEntPropertyToThis();
  /// Layer, linetype, colour, line weight and boundary tag of another entity.
  void CopyEntProperties(const CQdrDbEntity& other);
  /// A new entity of the same class in the same database, with an identity of its own, owned by
  /// the caller; null for a class that cannot be copied (a cobweb). The flag has no effect.
  CQdrDbEntity* CopyEntity(bool = true);

  bool IsDbEntity() const { return m_dbEntity; }
  /// True makes the grips.
  void SetDbEntity(bool inDatabase);
  void ClearBoundary() { m_boundaryTag = 0; }

  /// The box in logical units, as of the last setGripPoints.
  CRect* GetEntityRect() { return &m_entityRect; }
  /// The grip, or (0, 0) for an index out of range.
  CQdrGePoint2d getGripPoint(int index) const;
  /// Hands out the grips, made first if there are none. Always true.
  bool getGripPointVec(std::vector<CQdrGePoint2d>*& grips);
  /// Index of the grip whose box of whole drawing units holds the truncated pick, or -1; `grip` is
  /// then the last one tried. -1 for an entity outside the drawing.
  int GetGripNumber(const CQdrGePoint2d& pick, double scale, CQdrGePoint2d& grip);

  Return_Struct* xData() const { return m_xData; }
  /// Stores the head of a list, which becomes the entity's; an earlier list is not freed.
  void SetXData(Return_Struct* head) { m_xData = head; }
  void ClearXData();

  /// Marks the entity erased, and takes one of a drawing out of every index. Not undoable: it
  /// serves parts of other entities.
  void Erase();
  /// Takes the tracker of an entity of the drawing off. Always true.
  bool OnErased();
  /// On the device context of the current display record; nothing without one.
  void Draw();
  void HighlightDraw();
  /// HighlightDraw for an entity that was highlighted, else Draw.
  void ReDraw(CDC* dc);

  /// Selects the pen of the resolved properties and answers the one selected before, for
  /// RemovePen. Leaves the device context alone while highlighting and when a record is missing.
  CPen* setPen(CDC* dc);
  /// Selects `former` and frees the pen of setPen.
  void RemovePen(CDC* dc, CPen* former);

  /// True when the line crosses this entity.
  bool IntersectWith(CQdrGeLine2d& line, double tol);
  /// The same, where a crossing that lies within `tol` of both ends of the line counts for nothing.
  bool IsCrossWidth(CQdrGeLine2d& line, double tol);

  /// Even-odd test along a ray to +x; horizontal edges never count.
  static bool IsInsidePolygon(const CQdrGePoint2d* vertices, const CQdrGePoint2d& point, int count);
  static bool IsInsideRect(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2,
                           const CQdrGePoint2d& point);

 protected:
  explicit CQdrDbEntity(CQdrDbDatabase* database);

  /// Stores the class tag and the status bits of a concrete class.
  void setClassInfo(QdrDb::ClassType type, std::uint8_t status);
  /// Builds the grips of a class whose points are known, and refreshes the entity rectangle.
  void storeGripPoints(std::initializer_list<CQdrGePoint2d> points);
  void updateEntityRect();
  /// Makes the next drawing build a pen, and the view look at the entity's box again.
  void looksChanged();
  /// Deletes the cached pen.
  void freePen();

  std::int32_t m_boundaryTag = 0;
  QdrDb::LineWeight m_lineWeight{};
  CQdrDbObjectId m_layerId;
  CQdrDbObjectId m_lineTypeId;
  CQdrDbObjectId m_colorId;
  Return_Struct* m_xData = nullptr;
  std::vector<CQdrGePoint2d> m_gripPoints;
  CPen* m_pen = nullptr;
  CRect m_entityRect;
  bool m_dbEntity = false;
  bool m_highlighted = false;     ///< set by HighlightDraw, cleared by SetEntProperty alone
  bool m_backgroundDraw = false;  ///< during UnDraw
  bool m_highlightDraw = false;   ///< during the nested draw of HighlightDraw
  bool m_penStale = true;         ///< nothing clears it, so every setPen builds a pen

 private:
  void tellView();
};
