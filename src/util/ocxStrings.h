#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// File-name pieces, fields of a text and the case rules shared by the whole system.
namespace ocxStrings {

std::string trim(std::string_view text);       // blanks at both ends
std::string rightTrim(std::string_view text);  // blanks at the end

// ASCII letters only, independent of the locale.
std::string upper(std::string_view text);
bool equalNoCase(std::string_view a, std::string_view b);
// True when the first characters of the text, in upper case, are the keyword.
bool hasPrefix(std::string_view text, std::string_view keyword);

// The text before the last "." of the whole path, without surrounding blanks.
std::string StripExtension(std::string_view name);
// name becomes StripExtension(name) + "." + extension without its surrounding blanks.
void ChangeExtension(std::string& name, std::string_view extension);
// What follows the last "\" or "/" of the trimmed text.
std::string FileNameOf(std::string_view name);

// Moves start and end (1-based, inclusive) to the wanted-th field after position end and
// returns the number of fields found: the wanted count, or 0 when the text ends first. On 0,
// start and end hold the last field passed. The separator is one blank, or "," when the text
// holds one, or ";", or a tab (the later wins). Empty fields do not count; fields are not
// trimmed.
int16_t NextField(std::string_view text, int32_t wanted, int32_t& start, int32_t& end);
// The same with a blank as the separator, whatever the text holds.
int16_t NextBlankField(std::string_view text, int32_t wanted, int32_t& start, int32_t& end);
// Field number n of a text; empty when the text has fewer.
std::string FieldText(std::string_view text, int32_t number);
// The number of the next blank-separated field after the position, which moves to the field's
// end; 0 for an empty text or when no field is left.
double NextNumber(std::string_view text, int32_t& position);

}  // namespace ocxStrings
