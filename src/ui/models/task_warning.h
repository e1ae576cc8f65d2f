#pragma once

#include <string>

#include "document/task.h"

namespace my {
class IFileSystem;
class IMessageTexts;
}  // namespace my

namespace qlm {

// What the user should know of a task that no rule forbids: a destination lies within its source, or the
// source does not exist. Empty when there is nothing to say. Looks at the disk, but never at the network,
// where an answer can take half a minute.
std::wstring TaskWarning(const CTask& task, my::IFileSystem& files, const my::IMessageTexts& texts);

}  // namespace qlm
