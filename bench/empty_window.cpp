// qlm_empty_window [--controls]: the baselines of the start: one window that is empty, or that has plain
// controls like those of the program, and a message loop.
#include <windows.h>

#include <commctrl.h>

#include <cwchar>
#include <string>

namespace {

constexpr int kRows = 1000;
constexpr int kColumns = 4;
constexpr int kButtons = 9;  // of a pane
constexpr SIZE kWindow{960, 680};
constexpr int kLine = 26;  // height of a line of controls

// All cells of the lists have the same text.
void AnswerList(NMHDR& notification) {
  static wchar_t text[] = L"C:\\バックアップするフォルダー";
  if (notification.code == LVN_GETDISPINFOW)
    reinterpret_cast<NMLVDISPINFOW&>(notification).item.pszText = text;
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_DESTROY) ::PostQuitMessage(0);
  if (message == WM_NOTIFY) AnswerList(*reinterpret_cast<NMHDR*>(lParam));
  return ::DefWindowProcW(window, message, wParam, lParam);
}

class CControls {
 public:
  explicit CControls(HWND window) : m_window(window) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    m_font = ::CreateFontIndirectW(&metrics.lfMessageFont);  // until the process ends
    AddToolBar();
    Add(STATUSCLASSNAMEW, L"タスク 1000 件", 0, {});
    AddPane(kLine, kWindow.cy / 2);
    AddPane(kWindow.cy / 2, kWindow.cy - 4 * kLine);
  }

 private:
  HWND Add(const wchar_t* className, const std::wstring& text, DWORD style, const RECT& place) const {
    const HWND control = ::CreateWindowExW(0, className, text.c_str(), WS_CHILD | WS_VISIBLE | style,
                                           place.left, place.top, place.right - place.left,
                                           place.bottom - place.top, m_window, nullptr, nullptr, nullptr);
    ::SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(m_font), FALSE);
    return control;
  }

  void AddToolBar() const {
    const HWND bar = Add(TOOLBARCLASSNAMEW, L"", TBSTYLE_LIST, {});
    ::SendMessageW(bar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    TBBUTTON button{};
    button.iBitmap = I_IMAGENONE;
    button.fsState = TBSTATE_ENABLED;
    button.fsStyle = BTNS_AUTOSIZE;
    for (const wchar_t* text : {L"開く", L"保存", L"元に戻す", L"実行", L"テスト実行", L"結果", L"履歴"}) {
      button.iString = reinterpret_cast<INT_PTR>(text);
      ::SendMessageW(bar, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button));
    }
  }

  void AddPane(int top, int bottom) const {
    Add(L"STATIC", L"タスクの一覧", 0, {0, top, 100, top + kLine});
    for (int i = 0; i < kButtons; ++i) {
      const int left = 100 + i * 90;
      Add(L"BUTTON", L"追加 " + std::to_wstring(i), 0, {left, top, left + 86, top + kLine});
    }
    Add(L"STATIC", L"バックアップするフォルダー", SS_RIGHT, {0, bottom - kLine, kWindow.cx, bottom});
    AddList({0, top + kLine, kWindow.cx, bottom - kLine});
  }

  void AddList(const RECT& place) const {
    const HWND list = Add(WC_LISTVIEWW, L"", LVS_REPORT | LVS_OWNERDATA, place);
    for (int i = 0; i < kColumns; ++i) {
      std::wstring title = L"転送元 " + std::to_wstring(i);
      LVCOLUMNW column{};
      column.mask = LVCF_TEXT | LVCF_WIDTH;
      column.cx = kWindow.cx / kColumns;
      column.pszText = title.data();
      ListView_InsertColumn(list, i, &column);
    }
    ListView_SetItemCount(list, kRows);
  }

  HWND m_window;
  HFONT m_font;
};

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, LPWSTR commandLine, int showCommand) {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = &Procedure;
  windowClass.hInstance = instance;
  windowClass.hbrBackground = ::GetSysColorBrush(COLOR_WINDOW);
  windowClass.lpszClassName = L"QuillmoorEmptyWindow";
  ::RegisterClassW(&windowClass);
  const HWND window = ::CreateWindowExW(0, windowClass.lpszClassName, L"Empty", WS_OVERLAPPEDWINDOW, 0, 0,
                                        kWindow.cx, kWindow.cy, nullptr, nullptr, instance, nullptr);
  if (std::wcsstr(commandLine, L"--controls")) CControls{window};
  ::ShowWindow(window, showCommand);
  MSG message;
  while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
  return 0;
}
