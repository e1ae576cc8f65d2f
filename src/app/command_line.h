// The program's command line: at most the path of one document.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qlm {

class CCommandLineParserUtil {
 public:
  // The arguments of a whole command line. Blanks and tabs separate; a double or a single quote starts a run
  // that ends at the next quote of its kind and keeps what separates. Quotes are dropped, nothing escapes
  // them, and an argument without a character is none.
  static std::vector<std::wstring> Split(std::wstring_view text);
};

class CSimpleCommandLineParser {
 public:
  // `text` starts with the program's own path.
  explicit CSimpleCommandLineParser(std::wstring_view text);

  const std::vector<std::wstring>& Arguments() const { return m_arguments; }  // without the program

 private:
  std::vector<std::wstring> m_arguments;
};

class CSingleCommandLineParser : public CSimpleCommandLineParser {
 public:
  using CSimpleCommandLineParser::CSimpleCommandLineParser;

  // Empty when there is no argument. Throws IDS_TOO_MANY_ARGUMENTS.
  std::wstring Path() const;
};

}  // namespace qlm
