// The program with a document of three tasks: one with a folder, one with a password archive, one without
// destinations.
#pragma once

#include "support/fake_app.h"

namespace test {

class Commands : public testing::Test {
 protected:
  Commands() {
    content.dsts.Append(MakeDst(L"D:\\b"));
    content.dsts.Append(MakeDst(L"D:\\z", qlm::DstType::AES_256_ZIP, L"<ID>.zip"));
    content.tasks.Append(MakeTask(L"plain", {content.dsts[0]}));
    content.tasks.Append(MakeTask(L"secret", {content.dsts[1]}));
    content.tasks.Append(MakeTask(L"idle"));
  }

  // Starts the program with a saved document, and a run in this state.
  void StartIn(qlm::RunState state, bool modified = false) {
    a.dialogs.buttons.clear();
    a.files.Remove(kSettingsFile);
    a.files.Remove(L"D:\\");
    a.files.AddFolder(L"D:\\");
    a.Start();
    a.app->Settings().archive = {L"C:\\7-Zip\\7z.exe", qlm::PasswordType::SAVE, true, L"pw", ""};
    a.app->Document().Reset(content, L"C:\\doc.qlmr");
    if (modified) a.Fill(content);
    if (state == qlm::RunState::NotRun) return;
    a.Do(ID_RUN);
    if (state == qlm::RunState::Stopping || state == qlm::RunState::Stopped) a.Do(ID_RUN);
    if (state == qlm::RunState::Stopped || state == qlm::RunState::Ended) a.EndRun();
    ASSERT_EQ(a.State(), state);
  }

  CFakeApp a;
  qlm::CContent content;
};

}  // namespace test
