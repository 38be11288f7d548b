#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Where a text goes that is put together while it is written, so that memory does not grow with it:
/// what is at hand stands in a buffer, which a derived class takes away when it has grown.
class srv_TextOutput
{
public:
  srv_TextOutput() = default;
  virtual ~srv_TextOutput() = default;
  srv_TextOutput(srv_TextOutput const&) = delete;
  srv_TextOutput& operator=(srv_TextOutput const&) = delete;

  void Write(std::string_view text)
  {
    m_buffer += text;
    Relieve();
  }
  /// The text not yet written, to append to; Relieve now and then keeps it small.
  std::string& Buffer() { return m_buffer; }
  void Relieve()
  {
    if (m_buffer.size() >= c_bufferSize)
    {
      WriteOut();
    }
  }

protected:
  /// Takes the buffer's text and leaves the buffer empty.
  virtual void WriteOut() = 0;

  std::string m_buffer;

private:
  static constexpr std::size_t c_bufferSize = 65536;
};
