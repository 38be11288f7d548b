#pragma once

#include <charconv>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

/// A file that text and numbers are written to through one large buffer.
///
/// Faults are kept until the end: Close tells whether the file could be opened and written whole.
class DeckText
{
public:
  explicit DeckText(std::string const& file)
    : m_file(std::fopen(file.c_str(), "wb")), m_isGood(m_file != nullptr), m_buffer(1 << 20)
  {
  }
  ~DeckText() { Close(); }
  DeckText(DeckText const&) = delete;
  DeckText& operator=(DeckText const&) = delete;

  template <class... Pieces>
  void Text(Pieces const&... pieces)
  {
    (Piece(pieces), ...);
  }

  /// Right-aligned to the width, longer where the digits need it.
  void Integer(int value, int width = 0)
  {
    char digits[16];
    Padded(digits, std::to_chars(digits, digits + sizeof digits, value).ptr, width);
  }

  /// With the given number of decimals, right-aligned to the width; values below 1e9.
  void Fixed(double value, int width, int decimals)
  {
    char digits[32];
    auto const end =
      std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, decimals);
    Padded(digits, end.ptr, width);
  }

  bool Close()
  {
    if (m_file != nullptr)
    {
      Flush();
      m_isGood = std::fclose(m_file) == 0 && m_isGood;
      m_file = nullptr;
    }
    return m_isGood;
  }

private:
  void Piece(std::string_view text)
  {
    Reserve(text.size());
    std::memcpy(m_buffer.data() + m_used, text.data(), text.size());
    m_used += text.size();
  }

  void Padded(char const* begin, char const* end, int width)
  {
    std::size_t const length = static_cast<std::size_t>(end - begin);
    std::size_t const blanks =
      static_cast<std::size_t>(width) > length ? static_cast<std::size_t>(width) - length : 0;
    Reserve(blanks + length);
    std::memset(m_buffer.data() + m_used, ' ', blanks);
    std::memcpy(m_buffer.data() + m_used + blanks, begin, length);
    m_used += blanks + length;
  }

  // Pieces are short beside the buffer, so one flush always makes room.
  void Reserve(std::size_t bytes)
  {
    if (m_used + bytes > m_buffer.size())
      Flush();
  }

  void Flush()
  {
    if (m_isGood && m_used > 0)
      m_isGood = std::fwrite(m_buffer.data(), 1, m_used, m_file) == m_used;
    m_used = 0;
  }

  std::FILE* m_file;
  bool m_isGood;
  std::vector<char> m_buffer;
  std::size_t m_used = 0;
};
