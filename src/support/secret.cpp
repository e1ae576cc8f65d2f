#include "support/secret.h"

namespace my {
namespace {

template <class TString>
void Overwrite(TString& text) {
  text.resize(text.capacity());
  // volatile, because the compiler would remove writes just before the text is destroyed.
  volatile auto* chars = text.data();
  for (size_t i = 0; i < text.size(); ++i) chars[i] = 0;
  text.clear();
}

}  // namespace

void Wipe(std::wstring& text) {
  Overwrite(text);
}

void Wipe(std::string& text) {
  Overwrite(text);
}

}  // namespace my
