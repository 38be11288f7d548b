#include "eli_eostream.h"

#include <ostream>

namespace
{

constexpr std::size_t bufferSize = 32768;

} // namespace

eli_eostream::eli_eostream(std::ostream& target, int lineWidth)
  : m_target(target), m_lineWidth(lineWidth)
{
}

eli_eostream::~eli_eostream()
{
  try
  {
    Flush();
  }
  catch (...)
  {
    // A destructor raises nothing. The target's own state tells of the failure.
  }
}

eli_eostream& eli_eostream::operator<<(int value)
{
  char buffer[atr_numberSize];
  int const length = atr_FormatNumber(value, buffer);
  return Write({buffer, static_cast<std::size_t>(length)});
}

eli_eostream& eli_eostream::operator<<(double value)
{
  char buffer[atr_numberSize];
  int const length = atr_FormatNumber(value, buffer);
  return Write({buffer, static_cast<std::size_t>(length)});
}

eli_eostream& eli_eostream::Write(std::string_view text)
{
  m_buffer.append(text);
  if (m_buffer.size() >= bufferSize)
    Flush();
  return *this;
}

void eli_eostream::Flush()
{
  if (m_buffer.empty())
    return;
  m_target.write(m_buffer.data(), static_cast<std::streamsize>(m_buffer.size()));
  m_buffer.clear();
}

bool eli_eostream::Good()
{
  Flush();
  return m_target.good();
}
