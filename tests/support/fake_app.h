// The whole program without its windows, on a file system in memory.
#pragma once

#include <optional>
#include <string>

#include "app/application.h"
#include "command_ids.h"
#include "document/document_file.h"
#include "support/engine_doubles.h"
#include "support/fake_scheduler.h"
#include "support/fake_system.h"
#include "support/fake_windows.h"
#include "support/pugi_dom.h"

namespace test {

inline const std::wstring kSettingsFile = L"C:\\Roaming\\Tenkowa\\Quillmoor\\Quillmoor32.config";

class CFakeApp : public CEngineDoubles {
 public:
  CFakeApp() {
    files.AddFile(L"C:\\src\\a.txt", "a", kTime);
    files.AddFile(L"C:\\7-Zip\\7z.exe", "MZ");
    process.OnRun([this](const my::CProcessStart& start) { return MakeArchive(files, start); });
  }

  ~CFakeApp() {
    app.reset();
    EXPECT_EQ(threads.abandoned, 0) << "a worker was not waited for";
  }

  // Restarts the program with the files of the previous run.
  qlm::CApplication& Start(const std::wstring& commandLine = L"Quillmoor.exe") {
    app.reset();
    window = {};
    window.onTitle = onTitle;
    settings.emplace(0);
    document.emplace();
    const qlm::CAppPorts all{ports, dom, threads, folders, power, hash, shell, scheduler, clipboard};
    app.emplace(all, *settings, *document, dialogs, window, dialogs, commandLine);
    dialogs.tool = &app->Replace();
    app->Start();
    return *app;
  }

  void Do(uint32_t id) { app->Execute(id); }

  // Executes a command that asks for a path.
  void DoWithPath(uint32_t id, const std::wstring& path) {
    dialogs.paths = {path};
    Do(id);
  }

  // Makes `content` the open document, with unsaved edits.
  void Fill(const qlm::CContent& content) {
    app->Document().Edit(IDS_EDIT_MERGE, qlm::DocChangeEventFlags::RESET, [&content](qlm::CContent& own) {
      own = content;
      return true;
    });
  }

  // Lets the worker end, and ticks.
  void EndRun() {
    threads.Work();
    app->OnTimer();
  }

  void RunToEnd(uint32_t id = ID_RUN) {
    Do(id);
    EndRun();
  }

  qlm::RunState State() const { return app->Run().State(); }
  std::wstring Text(uint32_t id) const { return texts.Text(id); }

  // Returns the message boxes since the last call, one per line.
  std::wstring TakeBoxes() {
    std::wstring all;
    for (const std::wstring& box : dialogs.boxes) all += box + L"\n";
    dialogs.boxes.clear();
    return all;
  }

  CPugiDom dom;
  CManualThreads threads;
  CFakeFolders folders;
  CFakePower power;
  CFakeHash hash;
  CFakeShell shell;
  CFakeScheduler scheduler;
  CFakeClipboard clipboard;
  CFakeWindow window;
  CFakeDialogs dialogs;
  std::function<void()> onTitle;  // used by the next start
  std::optional<qlm::CSettings> settings;
  std::optional<qlm::CDocument> document;
  std::optional<qlm::CApplication> app;
};

}  // namespace test
