#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

/// A checksum over the rows of a table, their kinds and their order. Blanks do not count but within
/// string literals, nor do comments, which the compiler takes away: a table may be laid out anew.
class TableChecksum
{
public:
  void Row(std::string_view kind, std::string_view text)
  {
    Add(kind);
    bool inLiteral = false;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
      bool const isEscaped = i > 0 && text[i - 1] == '\\';
      inLiteral ^= text[i] == '"' && !isEscaped;
      if (inLiteral || text[i] != ' ')
        Add(text.substr(i, 1));
    }
    Add("\n");
  }

  /// Sixteen digits.
  std::string Text() const
  {
    char text[17];
    std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(m_sum));
    return text;
  }

private:
  // FNV-1a of 64 bits.
  void Add(std::string_view text)
  {
    for (char const c : text)
      m_sum = (m_sum ^ static_cast<unsigned char>(c)) * 1099511628211u;
  }

  std::uint64_t m_sum = 14695981039346656037u;
};
