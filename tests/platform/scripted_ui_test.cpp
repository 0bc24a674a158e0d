#include "platform/headless/scripted_ui.h"

#include <gtest/gtest.h>

#include "platform/headless/headless_platform.h"

namespace {

class Ui : public testing::Test {
 protected:
  qdr::HeadlessPlatform headless;
  qdr::ScopedPlatform scope{headless.context()};
  qdr::ScriptedUi& ui = headless.ui;
};

struct ScaleDialog : CDialog {
  static constexpr const wchar_t* kClassName = L"ScaleDialog";
  const wchar_t* className() const override { return kClassName; }
  bool OnInitDialog() override {
    scale = 1.0;
    return true;
  }
  void OnOK() override {
    if (scale > 0.0) EndDialog(IDOK);
  }
  double scale = 0.0;
};

TEST_F(Ui, DialogsTakeTheirAnswersInTurn) {
  ui.answer<ScaleDialog>([](ScaleDialog& dialog) {
    EXPECT_EQ(dialog.scale, 1.0);
    dialog.scale = 2.0;
    return IDOK;
  });
  ui.answer<ScaleDialog>([](ScaleDialog&) { return IDCANCEL; });
  ui.answer<ScaleDialog>([](ScaleDialog& dialog) {
    dialog.scale = -1.0;
    return IDOK;
  });
  ScaleDialog dialog;
  EXPECT_EQ(dialog.DoModal(), IDOK);
  EXPECT_EQ(dialog.scale, 2.0);
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
  EXPECT_TRUE(ui.faults().empty());
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
  EXPECT_EQ(ui.faults().back(), L"dialog ScaleDialog did not end");
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
  EXPECT_EQ(ui.faults().back(), L"dialog ScaleDialog without an answer");
  EXPECT_EQ(ui.answersLeft(), 0u);
}

struct WatchedFileDialog : CFileDialog {
  using CFileDialog::CFileDialog;
  std::string log;
  void OnFolderChange() override { log += "folder "; }
  void OnFileNameChange() override { log += "file "; }
};

TEST_F(Ui, FileDialogsReportEachChoice) {
  ui.answer<CFileDialog>([](CFileDialog& dialog) {
    dialog.choose(L"/plans/a.kov");
    dialog.choose(L"/plans/Site.v2.KOV");
    return IDOK;
  });
  WatchedFileDialog dialog(true, L"kov");
  EXPECT_EQ(dialog.DoModal(), IDOK);
  EXPECT_EQ(dialog.log, "folder file file ");
  EXPECT_EQ(dialog.GetPathName(), L"/plans/Site.v2.KOV");
  EXPECT_EQ(dialog.GetFileTitle(), L"Site.v2");
  EXPECT_EQ(dialog.GetFileExt(), L"KOV");
}

TEST_F(Ui, PopupsAnswerOnlyWhatCanBeChosen) {
  qdr::registerMenu(808, {{L"EntityPop", {{1, L"Copy"}, {0, L""}, {2, L"Explode"}}},
                          {L"Polyline", {{3, L"Join"}}}});
  CMenu menu;
  EXPECT_FALSE(menu.LoadMenu(809));
  ASSERT_TRUE(menu.LoadMenu(808));
  CMenu* const popup = menu.GetSubMenu(0);
  ASSERT_NE(popup, nullptr);
  EXPECT_EQ(menu.GetSubMenu(2), nullptr);
  EXPECT_EQ(popup->EnableMenuItem(2, MF_GRAYED), static_cast<int>(MF_ENABLED));
  EXPECT_EQ(popup->EnableMenuItem(3, MF_GRAYED), -1);
  for (const unsigned command : {1u, 2u, 3u})
    ui.choose(command);
  EXPECT_EQ(popup->TrackPopupMenu(TPM_RETURNCMD, 0, 0, nullptr), 1u);
  EXPECT_TRUE(ui.faults().empty());
  EXPECT_EQ(popup->TrackPopupMenu(TPM_RETURNCMD, 0, 0, nullptr), 0u);
  EXPECT_EQ(ui.faults().back(), L"popup command 2 is greyed");
  EXPECT_EQ(popup->TrackPopupMenu(TPM_RETURNCMD, 0, 0, nullptr), 0u);
  EXPECT_EQ(ui.faults().back(), L"popup command 3 is not there");
  EXPECT_FALSE(ui.lastPopup()[2].enabled);

  CMenu again;
  again.LoadMenu(808);
  EXPECT_TRUE(again.GetSubMenu(0)->items()[2].enabled) << "greying belongs to one loaded menu";
}

TEST_F(Ui, MessageBoxesAreKeptInTheOrderOfTheCall) {
  ui.press(IDNO);
  EXPECT_EQ(AfxMessageBox(L"Cannot remove base layer."), IDNO);
  EXPECT_EQ(MessageBoxW(nullptr, L"Explode Text", L"Path name is not defined."), IDOK);
  ASSERT_EQ(ui.boxes().size(), 2u);
  EXPECT_EQ(ui.boxes()[0].caption, L"");
  EXPECT_EQ(ui.boxes()[1].text, L"Explode Text");
  EXPECT_EQ(ui.boxes()[1].caption, L"Path name is not defined.");
}

TEST_F(Ui, NamesAndPathsAreCutToTheirBuffers) {
  headless.system.computer = L"A-RATHER-LONG-NAME-FOR-A-COMPUTER-OF-ANY-KIND";
  headless.system.user = L"kim";
  headless.system.module = L"/opt/qdraft/bin/qdraft";
  wchar_t buffer[33];
  DWORD size = 33;
  EXPECT_TRUE(GetComputerNameW(buffer, &size));
  EXPECT_EQ(size, 32u);
  EXPECT_STREQ(buffer, L"A-RATHER-LONG-NAME-FOR-A-COMPUTE");
  size = 33;
  EXPECT_TRUE(GetUserNameW(buffer, &size));
  EXPECT_EQ(size, 4u);
  EXPECT_STREQ(buffer, L"kim");
  EXPECT_EQ(GetModuleFileNameW(nullptr, buffer, 33), 22u);
  EXPECT_EQ(GetModuleFileNameW(nullptr, buffer, 5), 5u);
  EXPECT_STREQ(buffer, L"/opt");
}

}  // namespace
