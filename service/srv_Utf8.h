#pragma once

#include <string>
#include <string_view>

/// Bytes of the well-formed UTF-8 character that the text begins with; 0 when it begins with none.
/// Surrogates, overlong forms and numbers beyond Unicode are not well-formed.
int srv_Utf8Length(std::string_view text);

/// The text as it can be shown on a terminal, cut with "..." to at most `columns` characters. A tab
/// is a blank; control characters, and bytes that are no UTF-8, are shown by their hexadecimal
/// value, "\x1B".
std::string srv_Printable(std::string_view text, int columns);

/// The same without a limit and with its line feeds and tabs.
std::string srv_PrintableLines(std::string_view text);
