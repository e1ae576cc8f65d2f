// The command line of the desktop program: at most one argument, the path of a document to open or
// --check-filter=PATH.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qlm {

class CCommandLineParserUtil {
 public:
  // Splits a command line at spaces and tabs. A double or single quote starts a run that ends at the next
  // quote of the same kind and may contain spaces. Quotes are removed and cannot be escaped. Empty arguments
  // are dropped.
  static std::vector<std::wstring> Split(std::wstring_view text);
};

class CSimpleCommandLineParser {
 public:
  // `text` starts with the path of the program.
  explicit CSimpleCommandLineParser(std::wstring_view text);

  const std::vector<std::wstring>& Arguments() const { return m_arguments; }  // without the program

 private:
  std::vector<std::wstring> m_arguments;
};

class CSingleCommandLineParser : public CSimpleCommandLineParser {
 public:
  using CSimpleCommandLineParser::CSimpleCommandLineParser;

  // Returns the path of the document; empty if there is none. Throws IDS_TOO_MANY_ARGUMENTS.
  std::wstring Path() const;

  // Returns the path of the filter file to check; empty if there is none.
  std::wstring FilterToCheck() const;
};

}  // namespace qlm
