// What the tests of crashes rely on.
#include "support/memory_file_system.h"

#include <gtest/gtest.h>

namespace {

TEST(MemoryFileSystem, crash_loses_what_was_not_flushed_to_the_device) {
  for (const bool device : {false, true}) {
    test::CMemoryFileSystem files;
    files.AddFile(L"C:\\a", "1234");
    files.Copy(L"C:\\a", L"C:\\b", {}, my::LinkCopy::Target);
    files.FlushFile(L"C:\\b", device ? my::FlushDepth::Device : my::FlushDepth::WriteOut);
    files.CrashAt(1);
    EXPECT_THROW(files.CreateFolders(L"C:\\x"), test::CCrash);
    EXPECT_THROW(files.Kind(L"C:\\b"), test::CCrash);
    EXPECT_EQ(files.Files().at(L"C:\\b"), device ? "1234" : "12");
  }
}

}  // namespace
