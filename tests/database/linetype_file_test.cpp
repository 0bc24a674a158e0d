#include "database/linetype_file.h"

#include <gtest/gtest.h>

#include "platform/headless/memory_files.h"
#include "platform/platform_context.h"

namespace {

TEST(LinetypeFile, OffersNamesDescriptionsAndPatterns) {
  qdr::MemoryFiles files;
  files.put(L"/types.lin",
            ";; comment\n"
            "*DASHED,__ __, and so on\nA,12.5, -6.25\n"
            "*BARE\r\nno pattern here\r\n"
            " *LATE,blank before the star\nA,1\n"
            "*LAST,nothing follows");
  PlatformContext context;
  context.files = &files;
  qdr::ScopedPlatform scope(context);
  std::vector<qdr::LinetypeOffer> offers;
  EXPECT_FALSE(qdr::readLinetypeFile(L"/none.lin", offers));
  ASSERT_TRUE(qdr::readLinetypeFile(L"/types.lin", offers));
  struct Row {
    const wchar_t* name;
    const wchar_t* description;
    const wchar_t* pattern;
  };
  const Row rows[] = {{L"DASHED", L"__ __, and so on", L"12.5, -6.25"},
                      {L"BARE", L"", L""},
                      {L"*LATE", L"blank before the star", L"1"},  // the first character goes
                      {L"LAST", L"nothing follows", L""}};
  ASSERT_EQ(offers.size(), std::size(rows));
  for (std::size_t i = 0; i < offers.size(); ++i) {
    EXPECT_EQ(offers[i].name, rows[i].name);
    EXPECT_EQ(offers[i].description, rows[i].description);
    EXPECT_EQ(offers[i].pattern, rows[i].pattern);
  }
}

TEST(LinetypeFile, PatternsBecomeLengths) {
  EXPECT_EQ(qdr::dashesOf(L"12.5, -6.25,0,.5,-.25"),
            (std::vector<double>{12.5, -6.25, 0.0, 0.5, -0.25}));
  EXPECT_EQ(qdr::dashesOf(L"1,,[GAS,STANDARD,S=.1],x2,1e999,-2"), (std::vector<double>{1.0, -2.0}));
  EXPECT_TRUE(qdr::dashesOf(L"").empty());
}

}  // namespace
