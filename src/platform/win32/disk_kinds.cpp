#include "platform/win32/disk_kinds.h"

#include <windows.h>

#include <winioctl.h>

#include <algorithm>

#include "platform/win32/handle.h"

namespace my {
namespace {

// Returns the path of the mounted volume, which may be a folder, with a separator at its end.
std::wstring VolumeOf(const std::wstring& path) {
  std::wstring volume(std::max<size_t>(MAX_PATH, path.size() + 2), L'\0');
  if (!::GetVolumePathNameW(path.c_str(), volume.data(), static_cast<DWORD>(volume.size()))) return {};
  volume.resize(volume.find(L'\0'));
  return volume;
}

// Opening a device without access needs no rights.
CKernelHandle OpenVolume(const std::wstring& volume) {
  wchar_t name[64];  // "\\?\Volume{GUID}\"
  if (!::GetVolumeNameForVolumeMountPointW(volume.c_str(), name, ARRAYSIZE(name))) return {};
  std::wstring device = name;
  device.pop_back();  // with the separator it would be the root folder
  return CKernelHandle(::CreateFileW(device.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                     OPEN_EXISTING, 0, nullptr));
}

DiskKind KindOfFixed(const std::wstring& volume) {
  const CKernelHandle device = OpenVolume(volume);
  if (!device) return DiskKind::Unknown;
  STORAGE_PROPERTY_QUERY query{};
  query.PropertyId = StorageDeviceSeekPenaltyProperty;
  query.QueryType = PropertyStandardQuery;
  DEVICE_SEEK_PENALTY_DESCRIPTOR found{};
  DWORD size = 0;
  if (!::DeviceIoControl(device.Get(), IOCTL_STORAGE_QUERY_PROPERTY, &query, sizeof(query), &found,
                         sizeof(found), &size, nullptr) ||
      size < sizeof(found)) {
    return DiskKind::Unknown;
  }
  return found.IncursSeekPenalty ? DiskKind::Seeks : DiskKind::NoSeeks;
}

DiskKind KindOfVolume(const std::wstring& volume) {
  switch (::GetDriveTypeW(volume.c_str())) {
    case DRIVE_FIXED: return KindOfFixed(volume);
    case DRIVE_REMOTE: return DiskKind::Network;
    case DRIVE_RAMDISK: return DiskKind::NoSeeks;
    case DRIVE_CDROM: return DiskKind::Seeks;
    default: return DiskKind::Unknown;
  }
}

}  // namespace

DiskKind CDiskKinds::Of(const std::wstring& path) {
  constexpr uint64_t kValidMs = 60'000;
  const std::wstring volume = VolumeOf(path);
  if (volume.empty()) return DiskKind::Unknown;
  const uint64_t now = ::GetTickCount64();
  {
    const std::lock_guard hold(m_lock);
    const auto known = m_answers.find(volume);
    if (known != m_answers.end() && now - known->second.tick < kValidMs) return known->second.kind;
  }
  // Without the lock, because an unresponsive device may take seconds.
  const DiskKind kind = KindOfVolume(volume);
  const std::lock_guard hold(m_lock);
  m_answers[volume] = {kind, now};
  return kind;
}

}  // namespace my
