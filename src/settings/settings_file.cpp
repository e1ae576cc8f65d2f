#include "settings/settings_file.h"

#include "platform/file_system.h"
#include "platform/known_folders.h"
#include "platform/message_texts.h"
#include "platform/xml_layer.h"
#include "settings/settings_codec.h"
#include "settings/settings_layout.h"
#include "support/exception.h"
#include "support/paths.h"
#include "support/secret.h"
#include "text_ids.h"

namespace qlm {
namespace {

const std::wstring kRoot = L"QuillmoorSetting";
const std::wstring kVersion = L"Version";

// Wipes a password that must not be stored, at the end of a scope. An edited file may have one.
class CDropPasswordAtEnd {
 public:
  explicit CDropPasswordAtEnd(CArchiveSetting& archive) : m_archive(archive) {}
  CDropPasswordAtEnd(const CDropPasswordAtEnd&) = delete;
  CDropPasswordAtEnd& operator=(const CDropPasswordAtEnd&) = delete;
  ~CDropPasswordAtEnd() {
    if (m_archive.passwordType != PasswordType::SAVE) my::Wipe(m_archive.password);
  }

 private:
  CArchiveSetting& m_archive;
};

my::CVersion ReadSettings(const my::CXmlElement& root, CSettings& live) {
  const CDropPasswordAtEnd dropPassword(live.archive);
  const my::CVersion version = root.Child(kVersion).Version();
  Describe(CSettingsReader(root, version), live);
  return version;
}

CArchiveLoad ReadArchive(const my::CXmlElement& root) {
  CSettings settings(0);
  const CSettingsReader reader(root, root.Child(kVersion).Version());
  CArchiveLoad load;
  DescribeToArchive(reader, settings);
  load.archive = settings.archive;
  const CDropPasswordAtEnd dropPassword(load.archive);
  my::Wipe(settings.archive.password);
  try {
    DescribeRest(reader, settings);
  } catch (const my::CException& failure) {
    load.laterFailure = failure;
  }
  return load;
}

std::string SettingsBytes(my::IXmlDom& dom, CSettings settings) {
  if (settings.archive.passwordType != PasswordType::SAVE) settings.archive.password.clear();
  my::CXmlBuilder builder(dom, kRoot);
  my::AppendText(builder.Root(), kVersion, my::VersionText(kSettingsVersion));
  Describe(CSettingsWriter(builder.Root()), settings);
  return builder.Bytes();
}

}  // namespace

std::wstring SettingsPath(const my::IKnownFolders& folders, const my::IMessageTexts& texts) {
  const std::wstring product = texts.Text(IDS_PRODUCT_NAME);
  const std::wstring companyFolder = my::JoinPath(folders.RoamingAppData(), texts.Text(IDS_COMPANY_NAME));
  return my::JoinPath(my::JoinPath(companyFolder, product), product + L"32.config");
}

my::CVersion LoadSettings(my::IFileSystem& files, my::IXmlDom& dom, const std::wstring& path,
                          CSettings& live) {
  return my::NamingFile(path,
                        [&] { return ReadSettings(my::LoadXmlFile(files, dom, path, kRoot).root, live); });
}

CArchiveLoad LoadArchiveSetting(my::IFileSystem& files, my::IXmlDom& dom, const std::wstring& path) {
  return my::NamingFile(path, [&] { return ReadArchive(my::LoadXmlFile(files, dom, path, kRoot).root); });
}

void SaveSettings(my::IFileSystem& files, const my::IClock& clock, my::IXmlDom& dom, const std::wstring& path,
                  const CSettings& settings) {
  files.CreateFolders(std::wstring(my::ParentPath(path)));
  my::NamingFile(path, [&] { my::SaveXmlFile(files, clock, path, SettingsBytes(dom, settings)); });
}

}  // namespace qlm
