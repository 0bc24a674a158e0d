#include "database/object.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "database/id_set.h"

namespace {

class Probe : public CQdrDbObject {
 public:
  explicit Probe(std::uint64_t number = 0, CQdrDbDatabase* database = nullptr)
      : CQdrDbObject(database) {
    if (number != 0) setCreatedTime(number);
  }
  Probe(const Probe&) = default;
  Probe& operator=(const Probe&) = default;
  void makeProperty() override {
    std::vector<Property> rows;
    _makePropertyList(rows, L"Radius", L"2.5", 7, 1);
    properties()[L"Shape"] = rows;
  }
  void setStagedNumber(std::uint64_t number) { m_hardId = number; }
  void setStatus(int bits) { m_status = static_cast<std::uint8_t>(bits); }
};

TEST(ObjectId, OrdersByCreationNumberNullFirst) {
  Probe five(5), six(6), otherFive(5);
  struct Row {
    const char* name;
    const CQdrDbObject* first;
    const CQdrDbObject* second;
    bool less, equal;
  };
  const Row rows[] = {
      {"by number", &five, &six, true, false},
      {"reversed", &six, &five, false, false},
      {"same object", &five, &five, false, true},
      {"equal numbers are two objects, neither is less", &five, &otherFive, false, false},
      {"null before all", nullptr, &five, true, false},
      {"none before null", &five, nullptr, false, false},
      {"two nulls", nullptr, nullptr, false, true},
  };
  for (const Row& row : rows) {
    const CQdrDbObjectId first(row.first), second(row.second);
    EXPECT_EQ(first < second, row.less) << row.name;
    EXPECT_EQ(second > first, row.less) << row.name;
    EXPECT_EQ(second <= first, !row.less) << row.name;
    EXPECT_EQ(first >= second, !row.less) << row.name;
    EXPECT_EQ(first == second, row.equal) << row.name;
    EXPECT_EQ(first != second, !row.equal) << row.name;
    // An object pointer compares as its id does.
    EXPECT_EQ(first < row.second, row.less) << row.name;
    EXPECT_EQ(first == row.second, row.equal) << row.name;
    EXPECT_EQ(row.second == first, row.equal) << row.name;
  }
}

TEST(ObjectId, ComparesItsHardIdWithNumbers) {
  Probe object(7);
  const CQdrDbObjectId id(&object);
  EXPECT_TRUE(id == std::uint64_t{7});
  EXPECT_TRUE(id != std::uint64_t{8});
  EXPECT_TRUE(id < std::uint64_t{8} && id <= std::uint64_t{7} && !(id < std::uint64_t{7}));
  EXPECT_TRUE(id > std::uint64_t{6} && id >= std::uint64_t{7} && !(id > std::uint64_t{7}));
}

TEST(ObjectId, NullAnswersWithoutAnObject) {
  const CQdrDbObjectId id;
  EXPECT_TRUE(id.isNull());
  EXPECT_TRUE(id == nullptr);
  EXPECT_FALSE(id.isErased());
  EXPECT_FALSE(id.isVisiable());
  EXPECT_EQ(id.database(), nullptr);
  EXPECT_EQ(id.hardId(), 0u);
  id.save();
  EXPECT_EQ(classTypeOf(nullptr), 56);
}

TEST(IdSet, HoldsOneObjectOfANumberAndErasesOnlyTheVeryObject) {
  Probe four(4), nine(9), six(6), otherSix(6);
  qdr::IdSet ids;
  for (Probe* probe : {&nine, &four, &six})
    EXPECT_TRUE(qdr::insertId(ids, probe));
  EXPECT_FALSE(qdr::insertId(ids, &otherSix));
  EXPECT_FALSE(qdr::eraseId(ids, &otherSix));
  EXPECT_TRUE(qdr::insertId(ids, &six)) << "it is there already";
  std::vector<CQdrDbObject*> order;
  for (const CQdrDbObjectId& id : ids)
    order.push_back(id.getPObject());
  EXPECT_EQ(order, (std::vector<CQdrDbObject*>{&four, &six, &nine}));
  EXPECT_TRUE(qdr::eraseId(ids, &six));
  EXPECT_TRUE(qdr::insertId(ids, &otherSix));
  EXPECT_FALSE(qdr::containsId(ids, &six));
}

TEST(Object, NumbersFollowCreation) {
  CQdrDbObject::NextHardID = 0;
  Probe first, second;
  EXPECT_LE(first.getCreatedTime(), 999u) << "the seed is the milliseconds of the clock";
  EXPECT_EQ(second.getCreatedTime(), first.getCreatedTime() + 1);
  EXPECT_EQ(CQdrDbObject::NextHardID, first.getCreatedTime() + 2);
  EXPECT_TRUE(first.objectId() < second.objectId());
}

TEST(Object, HardIdFallsBackOnTheStagedNumber) {
  Probe object(3);
  object.setStagedNumber(5);
  EXPECT_EQ(object.hardObjectId(), 3u);
  object.setCreatedTime(0);
  EXPECT_EQ(object.hardObjectId(), 5u);
  EXPECT_EQ(object.getCreatedTime(), 5u);
}

TEST(Object, ACopyIsASecondNameOfItsSource) {
  Probe owner(1), source(8);
  source.setOwnerId(&owner);
  source.setInVisable();
  const std::uint64_t next = CQdrDbObject::NextHardID;
  const Probe copy(source);
  EXPECT_TRUE(copy.objectId() == &source);
  EXPECT_EQ(copy.getCreatedTime(), 8u);
  EXPECT_TRUE(copy.ownerId() == &owner);
  EXPECT_FALSE(copy.isVisiable());
  EXPECT_EQ(CQdrDbObject::NextHardID, next);

  Probe assigned(9);
  assigned = source;
  EXPECT_TRUE(assigned.objectId() == &assigned);
  EXPECT_EQ(assigned.getCreatedTime(), 9u);
  EXPECT_TRUE(assigned.isVisiable());
}

TEST(Object, StatusBitsAnswerTheirQuestions) {
  struct Row {
    int status;
    bool visible, erased, entity, dimension, compound;
  };
  const Row rows[] = {
      {0x00, true, false, false, false, false}, {0x01, false, false, false, false, false},
      {0x02, false, true, false, false, false}, {0x14, true, false, true, false, true},
      {0x84, true, false, true, false, false},  {0x94, true, false, true, true, true},
  };
  for (const Row& row : rows) {
    Probe object;
    object.setStatus(row.status);
    EXPECT_EQ(object.isVisiable(), row.visible) << row.status;
    EXPECT_EQ(object.isErased(), row.erased) << row.status;
    EXPECT_EQ(object.isEntity(), row.entity) << row.status;
    EXPECT_EQ(object.isDimension(), row.dimension) << row.status;
    EXPECT_EQ(object.isCompoundObject(), row.compound) << row.status;
  }
  Probe erased;
  erased.setInVisable();
  erased.setErased();
  erased.setVisable();
  EXPECT_FALSE(erased.isVisiable());
  erased.resetObjectStatus(CQdrDbObject::eErased);
  EXPECT_TRUE(erased.isVisiable());
}

TEST(Object, RebuildsItsPropertySheetAtEveryQuery) {
  Probe object;
  object.getProperty();
  const PropertyMap sheet = object.getProperty();
  ASSERT_EQ(sheet.size(), 1u);
  const std::vector<Property>& rows = sheet.at(object.classType()).at(L"Shape");
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0].m_caption, L"Change Radius");
  EXPECT_EQ(rows[0].m_value, L"2.5");
  EXPECT_EQ(rows[0].m_data, 7u);
  EXPECT_EQ(rows[0].m_type, 1);
}

TEST(EntityKeyword, FilesDimensionsTogetherAndCobwebsNowhere) {
  struct Row {
    int type;
    const wchar_t* keyword;
  };
  const Row rows[] = {{1, nullptr},       {2, L"ARC"},        {11, nullptr}, {12, L"INSERT"},
                      {17, L"DIMENSION"}, {25, L"DIMENSION"}, {26, L"BOX"},  {27, L"IMAGE"},
                      {30, L"ATTRIB"},    {31, L"TEXTTABLE"}, {32, nullptr}, {-1, nullptr}};
  for (const Row& row : rows)
    EXPECT_EQ(CString(qdr::entityKeyword(static_cast<QdrDb::ClassType>(row.type))),
              CString(row.keyword))
        << row.type;
}

}  // namespace
