#pragma once

#include <string>
#include <string_view>

/// Writes JSON at the end of a text, item by item; nothing is kept beside the text, which may be
/// emptied between two calls.
///
///     json.BeginObject().Key("name").String("node").Key("line").Number(2).EndObject();
///
/// The spaced form puts blanks behind commas and colons, and a line feed where Break asks for one.
/// The caller sees to it that what begins also ends.
class srv_JsonWriter
{
public:
  enum formEnm
  {
    compact,
    spaced
  };

  srv_JsonWriter(std::string& text, formEnm form) : m_text(text), m_form(form) {}

  srv_JsonWriter& BeginObject() { return Begin('{'); }
  srv_JsonWriter& EndObject() { return End('}'); }
  srv_JsonWriter& BeginArray() { return Begin('['); }
  srv_JsonWriter& EndArray() { return End(']'); }

  srv_JsonWriter& Key(std::string_view name);
  /// Bytes that are no UTF-8 become U+FFFD each.
  srv_JsonWriter& String(std::string_view value);
  srv_JsonWriter& Number(int value);
  /// The fewest digits that read back as the same value, with a fraction or an exponent. Infinity
  /// is 1e999, what is no number is null.
  srv_JsonWriter& Number(double value);
  srv_JsonWriter& Bool(bool value) { return Word(value ? "true" : "false"); }
  srv_JsonWriter& Null() { return Word("null"); }

  /// The next key or item begins a line, behind so many blanks.
  srv_JsonWriter& Break(int indent);

private:
  srv_JsonWriter& Begin(char bracket);
  srv_JsonWriter& End(char bracket);
  srv_JsonWriter& Word(std::string_view word);
  void Separate();
  void AppendString(std::string_view value);

  std::string& m_text;
  formEnm m_form;
  bool m_afterItem = false;
  int m_indent = -1; ///< of the line to begin; none when below 0
};
