#pragma once

#include <cstddef>
#include <unistd.h>

/// Text put together without the heap, as a signal handler must.
class drv_FixedText
{
public:
  drv_FixedText& Add(char const* text)
  {
    for (; *text != '\0'; ++text)
    {
      Put(*text);
    }
    return *this;
  }

  drv_FixedText& AddNumber(int number)
  {
    char digits[16];
    char* digit = digits + sizeof digits;
    *--digit = '\0';
    do
    {
      *--digit = static_cast<char>('0' + number % 10);
      number /= 10;
    } while (number > 0);
    return Add(digit);
  }

  /// Within a JSON string. Bytes beyond ASCII may be cut or malformed and are not worth the trouble.
  drv_FixedText& AddEscaped(char const* text)
  {
    for (; *text != '\0'; ++text)
    {
      bool const isPlain = *text >= ' ' && *text != '\x7f';
      if (*text == '"' || *text == '\\')
      {
        Put('\\');
      }
      Put(isPlain ? *text : '?');
    }
    return *this;
  }

  void Send() const
  {
    char const* from = m_text;
    while (from < m_end)
    {
      ssize_t const written = ::write(STDERR_FILENO, from, static_cast<std::size_t>(m_end - from));
      if (written <= 0)
      {
        return;
      }
      from += written;
    }
  }

private:
  void Put(char c)
  {
    if (m_end < m_text + sizeof m_text)
    {
      *m_end++ = c;
    }
  }

  char m_text[8192];
  char* m_end = m_text;
};
