#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace my {

// The standard streams. For use by one thread.
class IConsole {
 public:
  enum class Stream { Output, Errors };

  virtual ~IConsole() = default;

  // Returns whether the stream is a terminal.
  virtual bool IsTerminal(Stream stream) const = 0;

  // Writes immediately; as UTF-8 if the stream is not a terminal. Write errors are ignored, because there is
  // nowhere to report them.
  virtual void Write(Stream stream, std::wstring_view text) = 0;

  // Reads a line of standard input without its line end; as UTF-8 without a byte order mark if it is not a
  // terminal. Bytes that are no UTF-8 become U+FFFD. Returns nullopt at the end of the input.
  virtual std::optional<std::wstring> ReadLine() = 0;

  // Returns whether the user has pressed Ctrl+C or Ctrl+Break since the program started.
  virtual bool InterruptRequested() const = 0;
};

}  // namespace my
