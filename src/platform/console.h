#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace my {

// The standard streams. To be used by one thread.
class IConsole {
 public:
  enum class Stream { OUTPUT, ERRORS };

  virtual ~IConsole() = default;

  // Whether a person reads along.
  virtual bool IsTerminal(Stream stream) const = 0;

  // Writes at once; UTF-8 where the stream is not a terminal. What cannot be written is lost: there is
  // nowhere left to say so.
  virtual void Write(Stream stream, std::wstring_view text) = 0;

  // One line of standard input (UTF-8) without its end; nothing when the input has ended.
  virtual std::optional<std::wstring> ReadLine() = 0;

  // Whether the user has asked for the end of the program (Ctrl+C, Ctrl+Break) since it started.
  virtual bool InterruptRequested() const = 0;
};

}  // namespace my
