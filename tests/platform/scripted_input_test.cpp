#include "platform/headless/scripted_input.h"

#include <gtest/gtest.h>

#include "platform/headless/headless_platform.h"
#include "platform/window.h"

namespace {

using qdr::HeadlessPlatform;
using qdr::HeadlessWindow;

// A view that writes down what reaches it.
class LoggedView : public CView {
 public:
  std::string log;

  LRESULT WindowProc(unsigned message, WPARAM wParam, LPARAM lParam) override {
    log += std::to_string(message) + ":" + std::to_string(wParam) + " ";
    return CView::WindowProc(message, wParam, lParam);
  }
};

class Script : public testing::Test {
 protected:
  HeadlessPlatform headless;
  qdr::ScopedPlatform scope{headless.context()};
  LoggedView view;
  HeadlessWindow peer{view, CSize(200, 100), CPoint(30, 40)};
  qdr::ScriptedInput& script = headless.script;

  void SetUp() override { script.setView(&view, &peer); }

  // The loop of a blocked routine that translates keys and notes every message it gets.
  std::string messages() {
    std::string result;
    MSG message;
    while (GetMessageW(&message) > 0) {
      result += std::to_string(message.message) + ":" + std::to_string(message.wParam) + " ";
      TranslateMessage(&message);
    }
    return result;
  }
};

TEST_F(Script, MouseStepsCarryPositionButtonsAndKeys) {
  script.move(-3, 70000).mods(true, true, false).down().mods(false, false, false).move(5, 6).up();
  script.rclick();
  MSG message;
  ASSERT_GT(GetMessageW(&message), 0);
  EXPECT_EQ(message.message, WM_MOUSEMOVE);
  EXPECT_EQ(qdr::unpackedPoint(message.lParam), CPoint(-3, 32767));
  ASSERT_GT(GetMessageW(&message), 0);
  EXPECT_EQ(message.message, WM_LBUTTONDOWN);
  EXPECT_EQ(message.wParam, MK_LBUTTON | MK_CONTROL | MK_SHIFT);
  EXPECT_LT(GetKeyState(VK_CONTROL), 0);
  EXPECT_EQ(GetKeyState(VK_MENU), 0);
  ASSERT_GT(GetMessageW(&message), 0);
  EXPECT_EQ(message.wParam, MK_LBUTTON);
  POINT cursor;
  GetCursorPos(&cursor);
  EXPECT_EQ(CPoint(cursor), CPoint(35, 46));
  ASSERT_GT(GetMessageW(&message), 0);
  EXPECT_EQ(message.wParam, WPARAM{0});
  ASSERT_GT(GetMessageW(&message), 0);
  EXPECT_EQ(message.message, WM_RBUTTONDOWN);
}

// 's' is key 83, not 115, which is F4; '%' is key 53, not 37, which is the left arrow.
TEST_F(Script, TypedTextIsVirtualKeysAndTheirCharacters) {
  script.type(L"s%,S<\r가");
  EXPECT_EQ(messages(),
            "256:83 258:115 256:53 258:37 256:188 258:44 256:83 258:83 256:188 258:60 "
            "256:13 258:13 256:231 258:44032 ");
}

TEST_F(Script, KeysTypeOnlyWhatTheyStandFor) {
  script.key(115).arrow(37).key('A').mods(false, true, false).key('A').key('5');
  script.mods(true, false, false).key('C');
  EXPECT_EQ(messages(),
            "256:115 256:37 257:37 256:65 258:97 256:65 258:65 256:53 258:37 256:67 258:3 ");
}

TEST_F(Script, WithoutTranslationNoCharacterComes) {
  script.type(L"ab");
  MSG message;
  int count = 0;
  while (GetMessageW(&message) > 0) {
    EXPECT_EQ(message.message, WM_KEYDOWN);
    ++count;
  }
  EXPECT_EQ(count, 2);
}

TEST_F(Script, EndsInAQuitAndSaysSo) {
  script.paint().quit().paint();
  MSG message;
  EXPECT_EQ(GetMessageW(&message), 1);
  EXPECT_EQ(GetMessageW(&message), 0);
  EXPECT_FALSE(script.isExhausted());
  EXPECT_EQ(GetMessageW(&message), 1);
  EXPECT_EQ(GetMessageW(&message), 0);
  EXPECT_EQ(GetMessageW(&message), 0);
  EXPECT_TRUE(script.isExhaustedUnannounced());
  script.announceEnd();
  EXPECT_FALSE(script.isExhaustedUnannounced());
}

TEST_F(Script, EndsALoopThatFeedsItself) {
  MSG message;
  view.PostMessage(WM_NULL);
  std::size_t count = 0;
  while (GetMessageW(&message) > 0) {
    ++count;
    view.PostMessage(WM_NULL);
  }
  EXPECT_EQ(count, qdr::ScriptedInput::kMostMessages);
  EXPECT_TRUE(script.isExhausted());
}

TEST_F(Script, PostedMessagesComeBeforeTheScriptAndQuitsBehindThem) {
  script.paint();
  view.PostMessage(WM_COMMAND, 7);
  PostQuitMessage(0);
  view.PostMessage(WM_COMMAND, 8);
  EXPECT_EQ(messages(), "273:7 273:8 ");
  EXPECT_EQ(messages(), "15:0 ");
}

TEST_F(Script, LostCaptureWakesTheLoop) {
  CWnd other;
  EXPECT_EQ(view.SetCapture(), nullptr);
  script.loseCapture();
  MSG message;
  ASSERT_GT(GetMessageW(&message), 0);
  EXPECT_EQ(message.message, WM_NULL);
  EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(Script, MessagesGoToCaptureAndFocus) {
  LoggedView other;
  other.SetCapture();
  other.SetFocus();
  script.move(1, 1).key(13).command(40001).resize(20, 10);
  MSG message;
  while (GetMessageW(&message) > 0)
    DispatchMessageW(&message);
  EXPECT_EQ(other.log, "512:0 256:13 ");
  EXPECT_EQ(view.log, "273:40001 5:0 ");
  CRect client;
  view.GetClientRect(&client);
  EXPECT_EQ(client, CRect(0, 0, 20, 10));
}

TEST_F(Script, CallsRunInsideTheLoopAndTakeNoMessage) {
  int calls = 0;
  script.call([&] { ++calls; }).call([&] { view.PostMessage(WM_COMMAND, 5); }).key(27);
  EXPECT_EQ(messages(), "273:5 256:27 258:27 ");
  EXPECT_EQ(calls, 1);
}

TEST_F(Script, AWindowThatGoesTakesItsMessagesAlong) {
  MSG message;
  {
    LoggedView gone;
    gone.SetCapture();
    gone.SetFocus();
    script.move(1, 1);
    ASSERT_GT(GetMessageW(&message), 0);
    EXPECT_EQ(message.hwnd, &gone);
    gone.PostMessage(WM_COMMAND, 1);
  }
  EXPECT_EQ(GetCapture(), nullptr);
  EXPECT_EQ(CWnd::GetFocus(), nullptr);
  EXPECT_EQ(DispatchMessageW(&message), 0);
  EXPECT_EQ(messages(), "");
}

TEST_F(Script, CursorClipAndInputMethod) {
  const HCURSOR cross = LoadCursor(nullptr, IDC_CROSS);
  const HCURSOR former = SetCursor(cross);
  EXPECT_EQ(SetCursor(former), cross);
  const CRect area(1, 2, 3, 4);
  ClipCursor(&area);
  EXPECT_EQ(headless.input.clip(), area);
  ClipCursor(nullptr);
  EXPECT_FALSE(headless.input.clip());

  EXPECT_EQ(ImmGetContext(&view), nullptr);
  headless.ime.commit(L"가나다");
  const HIMC context = ImmGetContext(&view);
  wchar_t buffer[3] = {};
  EXPECT_EQ(ImmGetCompositionStringW(context, GCS_RESULTSTR, nullptr, 0), 12);
  EXPECT_EQ(ImmGetCompositionStringW(context, GCS_RESULTSTR, buffer, 11), 8);
  EXPECT_STREQ(buffer, L"가나");
  EXPECT_TRUE(ImmReleaseContext(&view, context));
}

}  // namespace
