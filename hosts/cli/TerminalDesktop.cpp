#include "TerminalDesktop.h"

#include <langinfo.h>
#include <locale.h>

#include "platform/texts.h"

namespace cli {

std::string TerminalDesktop::DecimalSeparator() const {
  // The program itself stays in the "C" locale: the libraries below read and write numbers.
  const locale_t user = newlocale(LC_NUMERIC_MASK, "", nullptr);
  if (user == nullptr) return Desktop::DecimalSeparator();
  const std::string separator = platform::textToUtf8(nl_langinfo_l(RADIXCHAR, user));
  freelocale(user);
  return separator.empty() ? Desktop::DecimalSeparator() : separator;
}

}  // namespace cli
