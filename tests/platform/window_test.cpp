#include "platform/window.h"

#include <gtest/gtest.h>

#include "platform/headless/headless_platform.h"

namespace {

using qdr::HeadlessPlatform;
using qdr::HeadlessWindow;

TEST(Window, WithoutAPeerHasNoArea) {
  CView view;
  CRect client(1, 1, 2, 2);
  view.GetClientRect(&client);
  EXPECT_TRUE(client.IsRectEmpty());
  EXPECT_EQ(view.GetDC(), nullptr);
  EXPECT_FALSE(view.RedrawWindow(261));
  EXPECT_EQ(view.GetScrollPosition(), CPoint(0, 0));
}

TEST(Window, MapsBetweenClientAndScreen) {
  CView view;
  HeadlessWindow peer(view, CSize(100, 50), CPoint(-10, 300));
  CPoint point(5, 6);
  view.ClientToScreen(&point);
  EXPECT_EQ(point, CPoint(-5, 306));
  view.ScreenToClient(&point);
  EXPECT_EQ(point, CPoint(5, 6));
  CRect rect;
  view.GetClientRect(&rect);
  view.ClientToScreen(&rect);
  EXPECT_EQ(rect, CRect(-10, 300, 90, 350));
}

TEST(Window, PeerAndWindowMayGoInEitherOrder) {
  auto view = std::make_unique<CView>();
  auto peer = std::make_unique<HeadlessWindow>(*view, CSize(1, 1));
  view.reset();
  peer->invalidate(nullptr, true);
  peer->updateNow();
  view = std::make_unique<CView>();
  peer = std::make_unique<HeadlessWindow>(*view, CSize(1, 1));
  peer.reset();
  EXPECT_EQ(view->peer(), nullptr);
}

TEST(Window, RedrawPaintsBeforeItReturns) {
  struct Painted : CWnd {
    int paints = 0;
    void OnPaint() override { ++paints; }
  } window;
  HeadlessWindow peer(window, CSize(10, 10));
  window.InvalidateRect(nullptr);
  EXPECT_EQ(window.paints, 0);
  window.RedrawWindow(261);
  EXPECT_EQ(window.paints, 1);
  window.UpdateWindow();
  EXPECT_EQ(window.paints, 1);
}

CString typedInto(CEdit& edit, const wchar_t* text) {
  for (; *text != L'\0'; ++text)
    edit.SendMessage(WM_CHAR, static_cast<WPARAM>(*text), 1);
  CString result;
  edit.GetWindowText(result);
  return result;
}

TEST(Edit, TypesAtTheCaretAndOverTheSelection) {
  CEdit edit;
  edit.SetWindowText(L"abcd");
  EXPECT_EQ(typedInto(edit, L"x"), L"xabcd");
  edit.SendMessage(EM_SETSEL, 2, 4);
  EXPECT_EQ(typedInto(edit, L"YZ"), L"xaYZd");
  EXPECT_EQ(typedInto(edit, L"\b"), L"xaYd");
  edit.SetSel(0, -1);
  EXPECT_EQ(typedInto(edit, L"\b\b\r\x1b\x03"), L"");
  edit.SendMessage(EM_SETSEL, 99, 99);
  EXPECT_EQ(typedInto(edit, L"가"), L"가");
}

TEST(Edit, MovesTheCaretByKeys) {
  CEdit edit;
  edit.SetWindowText(L"abc");
  edit.SendMessage(WM_KEYDOWN, VK_END);
  edit.SendMessage(WM_KEYDOWN, VK_LEFT);
  EXPECT_EQ(typedInto(edit, L"-"), L"ab-c");
  edit.SendMessage(WM_KEYDOWN, VK_HOME);
  edit.SendMessage(WM_KEYDOWN, VK_LEFT);
  edit.SendMessage(WM_KEYDOWN, VK_DELETE);
  EXPECT_EQ(typedInto(edit, L""), L"b-c");
}

TEST(Edit, TypedTextIsBounded) {
  CEdit edit;
  edit.SetWindowText(CString(L'x', 32767));
  EXPECT_EQ(typedInto(edit, L"y").GetLength(), 32767);
}

struct KeyLog : CView {
  std::vector<unsigned> keys;
  void OnKeyDown(unsigned key, unsigned, unsigned) override { keys.push_back(key); }
};

TEST(EditCmd, HandsEnterEscAndSpaceToTheActiveView) {
  CFrameWnd main;
  CFrameWnd child;
  KeyLog view;
  CEditCmd line;
  line.SendMessage(WM_KEYDOWN, VK_RETURN, 1);
  qdr::setMainFrame(&main);
  main.setActiveFrame(&child);
  line.SendMessage(WM_KEYDOWN, VK_RETURN, 1);
  child.SetActiveView(&view);
  for (const int key : {VK_RETURN, VK_ESCAPE, VK_SPACE, VK_LEFT, int{'A'}})
    line.SendMessage(WM_KEYDOWN, static_cast<WPARAM>(key), 1);
  EXPECT_EQ(view.keys, (std::vector<unsigned>{13, 27, 32}));
}

TEST(EditCmd, ForwardedCharactersLandBehindThePrompt) {
  CEditCmd line;
  HeadlessWindow peer(line, CSize(10, 10));
  line.SetWindowText(L"Point: ");
  line.onMyChar(L'1', 1, 0);
  line.onMyChar(L'2', 1, 0);
  line.onMyChar(8, 1, 0);
  CString text;
  line.GetWindowText(text);
  EXPECT_EQ(text, L"Point: 1");
  EXPECT_EQ(peer.scrolledToEnd(), 3);
}

TEST(Combo, KeepsSelectionAndDataByRow) {
  CComboBox combo;
  int mark = 0;
  combo.AddString(L"0");
  combo.AddString(L"Other");
  EXPECT_EQ(combo.InsertString(1, L"Walls"), 1);
  EXPECT_EQ(combo.SetItemDataPtr(1, &mark), 1);
  EXPECT_EQ(combo.InsertString(9, L"x"), CB_ERR);
  combo.SetCurSel(1);
  combo.InsertString(0, L"first");
  EXPECT_EQ(combo.GetCurSel(), 2);
  EXPECT_EQ(combo.GetItemDataPtr(2), &mark);
  CString text;
  combo.GetWindowText(text);
  EXPECT_EQ(text, L"Walls");
  EXPECT_EQ(combo.FindStringExact(-1, L"WALLS"), 2);
  EXPECT_EQ(combo.FindStringExact(2, L"walls"), 2);
  EXPECT_EQ(combo.FindStringExact(-1, L"wall"), CB_ERR);
  EXPECT_EQ(combo.DeleteString(0), 3);
  EXPECT_EQ(combo.GetCurSel(), 1);
  combo.DeleteString(1);
  EXPECT_EQ(combo.GetCurSel(), CB_ERR);
  EXPECT_EQ(combo.GetLBText(7, text), CB_ERR);
}

struct LabelledList : CListCtrl {
  std::wstring ended;
  void OnEndLabelEdit(int row, const wchar_t* text) override {
    ended += std::to_wstring(row) + (text ? text : L"null");
  }
};

TEST(List, KeepsCellsDataAndSelection) {
  LabelledList list;
  list.InsertColumn(0, L"Name");
  list.InsertColumn(1, L"Color");
  EXPECT_EQ(list.InsertItem(99, L"b"), 0);
  EXPECT_EQ(list.InsertItem(0, L"a"), 0);
  list.SetItemText(1, 1, L"red");
  list.SetItemData(1, 77);
  EXPECT_FALSE(list.SetItemText(1, 2, L"none"));
  EXPECT_EQ(list.GetItemText(1, 1), L"red");
  EXPECT_EQ(list.GetItemText(5, 0), L"");
  list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
  EXPECT_EQ(list.nextSelected(), 1);
  EXPECT_EQ(list.nextSelected(1), -1);
  EXPECT_EQ(list.GetSelectedCount(), 1);
  EXPECT_TRUE(list.EditLabel(1));
  list.DeleteItem(0);
  EXPECT_EQ(list.editedRow(), 0);
  EXPECT_EQ(list.GetItemData(0), 77u);
  list.endLabelEdit(L"new");
  list.endLabelEdit(L"late");
  EXPECT_EQ(list.ended, L"0new");
}

}  // namespace
