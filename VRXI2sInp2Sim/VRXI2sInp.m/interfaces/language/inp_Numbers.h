#pragma once

/// Numbers from text, in the manner of the C library's atoi and atof but quick, independent of the
/// locale, and defined for every text.
///
/// Both skip white space, take as much of the text as reads as a number, and give 0 for a text that
/// begins with none. A leading "+" and hexadecimal reals are taken.

/// Numbers beyond the range of an int become INT_MAX or INT_MIN.
int inp_TextToInt(char const* text);

/// The number with which the text begins is within the range of an int; so is none.
bool inp_FitsInt(char const* text);

/// Numbers beyond the range of a double become infinite or 0. `*end`, when asked for, is the first
/// character that was not read; it is `text` itself when nothing was.
double inp_TextToDouble(char const* text, char const** end = nullptr);
