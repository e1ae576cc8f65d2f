#include "screenshots/shots.h"

#include <cstdio>

#include "document/document_edits.h"
#include "history/history_file.h"
#include "platform/win32/ui_language.h"
#include "support/strings.h"
#include "ui/framework/dpi.h"
#include "ui/framework/gdiplus.h"

namespace shots {

using namespace qlm;

namespace {

std::wstring g_folder;
std::vector<std::wstring> g_names;  // empty: all

CLSID PngEncoder() {
  CLSID png{};
  ::CLSIDFromString(L"{557CF406-1A04-11D3-9A73-0000F81EF32E}", &png);
  return png;
}

// The names of the samples in Japanese and English. A name comes before those that it contains.
constexpr std::pair<std::wstring_view, std::wstring_view> kSampleNames[] = {
    {L"毎日のバックアップ", L"Daily backup"},
    {L"バックアップ", L"Backups"},
    {L"会計データ", L"Accounts"},
    {L"ソースコード", L"Source code"},
    {L"書類", L"Documents"},
    {L"見積書", L"Quotes"},
    {L"写真", L"Photos"},
    {L"設定", L"Settings"},
    {L"会計", L"Accounts"},
    {L"開発", L"Development"},
    {L"書庫", L"Archives"},
    {L"社内", L"office"},
    {L"議事録", L"Minutes"},
    {L"年度", L""},
    {L"下書き", L"Draft"},
    {L"名簿", L"Members"},
    {L"旅行", L"Journey"},
    {L"決算", L"Balance"},
    {L"保管", L"Kept"},
    {L"外付けディスク", L"External disk"},
};

}  // namespace

std::wstring Sample(std::wstring text) {
  if (my::CurrentUiLanguage() == my::UiLanguage::Japanese) return text;
  for (const auto& [japanese, english] : kSampleNames) {
    for (size_t at = 0; (at = text.find(japanese, at)) != text.npos; at += english.size())
      text.replace(at, japanese.size(), english);
  }
  return text;
}

void Begin(std::wstring folder, std::vector<std::wstring> names) {
  g_folder = std::move(folder);
  g_names = std::move(names);
}

bool Wanted(const std::wstring& name) {
  return g_names.empty() || std::find(g_names.begin(), g_names.end(), name) != g_names.end();
}

void Save(HBITMAP bitmap, const std::wstring& name) {
  const CLSID png = PngEncoder();
  Gdiplus::Bitmap picture(bitmap, nullptr);
  const std::wstring path = g_folder + L"\\" + name + L".png";
  std::printf("%ls: %s\n", name.c_str(),
              picture.Save(path.c_str(), &png, nullptr) == Gdiplus::Ok ? "ok" : "failed");
}

// Copies the screen at the window's position, so that the picture includes frame and menus.
void Capture(HWND window, const std::wstring& name) {
  const RECT bounds = test::Bounds(window);
  const SIZE size = test::Size(window);
  const my::CWindowDc screen(nullptr);
  const my::CMemoryDc memory(::CreateCompatibleDC(screen.Get()));
  const my::CBitmap bitmap(::CreateCompatibleBitmap(screen.Get(), size.cx, size.cy));
  {
    const my::CSelect select(memory.Get(), bitmap.Get());
    ::BitBlt(memory.Get(), 0, 0, size.cx, size.cy, screen.Get(), bounds.left, bounds.top, SRCCOPY);
  }
  Save(bitmap.Get(), name);
}

void ShootMenu(HWND window, wchar_t key, const std::wstring& name) {
  static HWND s_window;
  static std::wstring s_name;
  s_window = window;
  s_name = name;
  const auto shoot = [](HWND, UINT, UINT_PTR timer, DWORD) {
    ::KillTimer(nullptr, timer);
    Capture(s_window, s_name);
    ::EndMenu();
  };
  ::SetTimer(nullptr, 0, 500, shoot);
  ::SendMessageW(window, WM_SYSCOMMAND, SC_KEYMENU, key);
  test::Pump();
}

void Shoot(HWND window, const std::wstring& name) {
  ::SetForegroundWindow(window);
  ::RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW | RDW_FRAME);
  test::Pump();
  Capture(window, name);
}

void ShootAtAllDpis(HWND window, const std::wstring& name) {
  Shoot(window, name);
  const SIZE size = test::Size(window);
  for (const UINT dpi : {144u, 192u}) {
    RECT bounds{0, 0, my::Scale(size.cx, dpi), my::Scale(size.cy, dpi)};
    ::SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&bounds));
    ::SetWindowPos(window, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    test::Pump();
    Shoot(window, name + L"_" + std::to_wstring(dpi * 100 / 96));
  }
}

void CSampleApp::FillDisk() {
  my::IFileSystem& files = scratch.files;
  for (const wchar_t* folder : {L"D:\\書類\\見積書", L"D:\\写真", L"D:\\設定", L"D:\\7-Zip"})
    files.CreateFolders(Sample(folder));
  const auto write = [&files](const std::wstring& path, const std::string& bytes) {
    const auto file = files.CreateNewFile(Sample(path));
    if (!file) return;  // of the last program
    file->Write(bytes);
    file->Close();
  };
  for (const wchar_t* name :
       {L"書類\\議事録.txt", L"書類\\見積書\\2024年度.xlsx", L"書類\\見積書\\2025年度.xlsx",
        L"書類\\下書き.tmp", L"書類\\名簿.bak", L"写真\\旅行.jpg"})
    write(std::wstring(L"D:\\") + name, std::string(12'345, 'x'));
  write(L"D:\\7-Zip\\7z.exe", "MZ");
  write(L"D:\\設定\\書類.flt", "- \\.tmp$\n- \\.bak$\n");
}

void CSampleApp::FillHistory() {
  const std::wstring history = HistoryPath(folders, texts);
  const auto row = [this](const wchar_t* task, RowOutcome outcome, uint64_t files) {
    CHistoryRow made;
    made.taskId = Sample(task);
    made.source = L"D:\\" + made.taskId;
    made.destination = Sample(L"E:\\バックアップ\\") + made.taskId + L"_2026_11_20_12_30";
    made.outcome = outcome;
    made.files = files;
    made.bytes = files * 123'456;
    if (outcome != RowOutcome::FAILED) return made;
    made.error = IDS_COPY_FILE_FAILED;
    made.detail = 0x80070070;
    const std::vector<my::CMsgArg> parts = {my::CSystemError{static_cast<int32_t>(made.detail)},
                                            Sample(L"D:\\会計\\2025\\決算.xlsx"),
                                            Sample(L"E:\\バックアップ\\決算.xlsx")};
    const my::CMsgArg reason = my::MakeText(texts, IDS_COPY_FILE_FAILED, parts);
    made.message = my::OneLine(my::MakeText(texts, IDS_ERR_COPYING, {&reason, 1}));
    return made;
  };
  constexpr uint64_t kHour = uint64_t{60} * 60 * 10'000'000;
  for (uint64_t day = 14; day > 0; --day) {
    CHistoryRun run;
    run.start = {clock.Now().ticks - day * 24 * kHour};
    run.end = {run.start.ticks + kHour / 60 * (day % 3 + 1)};
    run.program = day % 5 == 0 ? RunProgram::WINDOW : RunProgram::RUNNER;
    run.document = Sample(L"D:\\設定\\毎日のバックアップ.qlmr");
    run.rows = {row(L"書類", RowOutcome::CREATED, 120 + day),
                row(L"写真", day % 2 == 0 ? RowOutcome::CREATED : RowOutcome::SKIPPED, 2'480),
                row(L"会計データ", day > 9 ? RowOutcome::CREATED : RowOutcome::FAILED, 34)};
    if (day == 4) run.rows[1].unlisted = 1;
    AppendHistory(scratch.files, clock, history, run);
  }
  ::SendMessageW(frame->Hwnd(), WM_COMMAND, ID_HISTORY, 0);
  const HWND window = test::DialogWith(IDC_HISTORY_RUNS);
  test::PumpUntil([window] { return ListView_GetItemCount(::GetDlgItem(window, IDC_HISTORY_RUNS)) != 0; });
}

CSampleApp::CSampleApp() {
  FillDisk();
  OpenSample();
}

void CSampleApp::Restart() {
  Start();
  OpenSample();
}

void CSampleApp::WritePhoto(const std::wstring& name) {
  const std::wstring path = Sample(L"D:\\写真\\" + name);
  scratch.files.CreateFolders(std::wstring(my::ParentPath(path)));
  const auto file = scratch.files.CreateNewFile(path);
  file->Write(std::string(size_t{3} << 20, 'x'));
  file->Close();
}

void CSampleApp::OpenSample() {
  UseArchiver();
  CContent content;
  const auto dst = [&](const std::wstring& folder, DstType type, const std::wstring& pattern) {
    auto item = boost::make_shared<CDst>(CDst{Sample(folder), type, pattern});
    content.dsts.Append(item);
    return item;
  };
  const auto folder = dst(L"E:\\バックアップ", DstType::FOLDER, L"<ID>_<Y>_<M>_<D>_<h>_<m>");
  dst(L"E:\\書庫", DstType::ZIP, L"<ID>_<Y><M><D>.zip");
  dst(L"\\\\NAS\\backup\\社内", DstType::AES_256_ZIP, L"<ID>_<Y><M><D>_<h><m>.zip");
  const auto add = [&](const std::wstring& id, const std::wstring& path, CTaskDsts dsts,
                       const std::wstring& filter) {
    content.tasks.Append(
        boost::make_shared<CTask>(CTask{Sample(id), Sample(path), Sample(filter), std::move(dsts)}));
  };
  add(L"書類", L"D:\\書類", {folder}, L"D:\\設定\\書類.flt");
  add(L"写真", L"D:\\写真", {folder}, L"");
  add(L"会計データ", L"D:\\会計\\2025", {folder}, L"");
  add(L"ソースコード", L"D:\\開発\\quill", {}, L"D:\\設定\\開発.flt");
  app->Document().Reset(content, Sample(L"D:\\設定\\毎日のバックアップ.qlmr"));
  FillHistory();
  ::SendMessageW(test::DialogWith(IDC_HISTORY_RUNS), WM_CLOSE, 0, 0);
  test::Pump();
}

}  // namespace shots
