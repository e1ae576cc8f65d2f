#pragma once

namespace my {
class IAnsiCodec;
class IClock;
class IFileSystem;
class IMessageTexts;
class IProcess;
}  // namespace my

namespace qlm {

// The ports of a job; all must outlive it.
struct CEnginePorts {
  my::IFileSystem& files;
  const my::IClock& clock;
  const my::IAnsiCodec& ansi;
  const my::IMessageTexts& texts;
  my::IProcess& process;
};

}  // namespace qlm
