// Another program changes the source while it is listed, copied and archived.
#include <set>

#include "engine/remedy.h"
#include "support/engine_doubles.h"

namespace {

using Holding = test::CMemoryFileSystem::Holding;
using qlm::DstType;
using test::kTime;

// What another program does: it removes something, puts a link in its place, adds a file.
struct CChange {
  const char* name;
  std::wstring removed = {}, link = {}, added = {};
  std::string content = {};
};

const std::wstring kFile = L"C:\\src\\sub\\b.txt";
const std::wstring kFolder = L"C:\\src\\sub";

const CChange kChanges[] = {{"file vanishes", kFile},
                            {"file shrinks", L"", L"", kFile, "b"},
                            {"file grows", L"", L"", kFile, "inside and longer"},
                            {"file becomes a folder", kFile, L"", kFile + L"\\x", "inside"},
                            {"file becomes a link", kFile, L"C:\\outside\\sub\\b.txt"},
                            {"folder vanishes", kFolder},
                            {"folder becomes a file", kFolder, L"", kFolder, "inside"},
                            {"folder becomes a link", kFolder, L"C:\\outside\\sub"},
                            {"inner folder becomes a link", kFolder + L"\\deep", L"C:\\outside\\sub\\deep"},
                            {"source becomes a link", L"C:\\src", L"C:\\outside"}};

// With one thread or several that copy.
class SourceRace : public testing::TestWithParam<std::tuple<Holding, size_t>>,
                   protected test::CEngineDoubles {
 protected:
  SourceRace() {
    for (const auto& [type, name] : {std::pair(DstType::FOLDER, L"one"), {DstType::ZIP, L"two.zip"}})
      task.dsts.push_back(test::MakeDst(L"D:\\dst", type, name));
    process.OnRun([this](const my::CProcessStart& start) { return Archive(start); });
  }

  void Reset() {
    files = {};
    files.SetHolding(std::get<0>(GetParam()));
    for (const wchar_t* name : {L"a.txt", L"sub\\b.txt", L"sub\\deep\\c.txt", L"sub\\d.txt", L"z.txt"}) {
      files.AddFile(L"C:\\src\\" + std::wstring(name), "inside", kTime);
      files.AddFile(L"C:\\outside\\" + std::wstring(name), "outside", kTime);
    }
    files.AddFile(L"C:\\src\\sub\\empty", "", kTime);
  }

  // Opens the files one after the other, so that they change between them.
  uint32_t Archive(const my::CProcessStart& start) {
    test::MakeArchive(files, start);
    std::string contents;
    std::istringstream list(files.Files().at(start.arguments.substr(start.arguments.rfind(L" @") + 2)));
    for (std::string name; std::getline(list, name);) {
      try {
        contents += files.ReadFile(my::JoinPath(start.workingFolder, my::WideFromUtf8(name)), 99);
      } catch (const my::CException&) {
        return 1;
      }
    }
    const std::wstring path = L"D:\\dst\\_tmp_two.zip";
    files.AddUnflushedFile(path, contents + files.Files().at(path));
    return 0;
  }

  // Links that were there when listed are followed.
  static bool ListedLink(const qlm::CTargets& targets) {
    return targets.IsSourceLink() ||
           std::any_of(targets.begin(), targets.end(), [](const auto& target) { return target.IsLink(); });
  }

  void ExpectCompleteFolder(const qlm::CTargets& targets, const std::string& where) {
    const auto all = files.Files();
    for (const qlm::CTarget target : targets) {
      if (!target.IsCountedFile()) continue;
      EXPECT_TRUE(all.contains(L"D:\\dst\\one\\" + std::wstring(target.RelativePath()))) << where;
    }
  }

  void ExpectNothingFromOutside(const std::wstring& backup, const std::string& where) {
    for (const auto& [path, content] : files.Files()) {
      if (path.starts_with(L"D:\\dst\\" + backup)) EXPECT_FALSE(test::Has(content, "outside")) << where;
    }
  }

  // Returns false if the system refuses.
  bool Make(const CChange& change) {
    if (!change.removed.empty() && !files.Replace(change.removed, change.link)) return false;
    if (!change.added.empty()) files.AddFile(change.added, change.content, kTime);
    return true;
  }

  qlm::CTask task{L"t", L"C:\\src\\", L"", {}};
};

TEST_P(SourceRace, change_at_any_moment_is_told_and_leads_nowhere_else) {
  for (const CChange& change : kChanges) {
    std::set<uint32_t> errors;
    bool refused = false;
    for (int n = 1;; ++n) {
      const std::string where = std::string(change.name) + " before operation " + std::to_string(n);
      Reset();
      files.MeanwhileAt(n, [&] { refused |= !Make(change); });
      const auto rows = RunJob(task, std::get<1>(GetParam()));
      if (!files.IsMeanwhileDone()) break;
      ASSERT_LT(n, 500);
      const auto& row = *rows.back();
      errors.insert(row.error.code);
      if (row.error) {
        EXPECT_NE(qlm::RemedyOf(row.error), uint32_t{IDS_REMEDY_OTHER})
            << where << test::NameOf(row.error.code);
        EXPECT_EQ(files.Kind(row.destinationPath), my::PathKind::None) << where;
      }
      if (!row.error || rows.size() > 1) ExpectCompleteFolder(*row.targets, where);
      if (ListedLink(*row.targets)) continue;
      ExpectNothingFromOutside(L"one\\", where);
      // The archiver opens files itself, also those that have become links.
      if (change.removed != kFile) ExpectNothingFromOutside(L"two.zip", where);
    }
    EXPECT_TRUE(errors.contains(0)) << change.name;
    const bool ofFolder = !change.removed.empty() && change.removed != kFile;
    EXPECT_EQ(refused, ofFolder && std::get<0>(GetParam()) == Holding::Enforced) << change.name;
    EXPECT_EQ(errors.contains(IDS_SOURCE_BECAME_LINK), !change.link.empty()) << change.name;
  }
}

INSTANTIATE_TEST_SUITE_P(, SourceRace,
                         testing::Combine(testing::Values(Holding::Enforced, Holding::NotEnforced,
                                                          Holding::Refused),
                                          testing::Values(1, 3)));

}  // namespace
