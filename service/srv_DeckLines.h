#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

/// Reads single lines of deck files again, to show them under a message.
///
/// Any order of lines is fine: where every 64th line begins is kept, so a line costs a short read,
/// and a file is passed over once at most. Only regular files are read.
class srv_DeckLines
{
public:
  /// The line without its end, its first 1000 bytes at most; nothing when there is no such line.
  std::optional<std::string> Line(std::string const& file, int line);

private:
  struct Index
  {
    std::vector<long> begins{0}; ///< of lines 1, 65, 129, ...
    bool isWhole = false;        ///< the file has been passed over to its end
  };

  std::map<std::string, Index> m_indices;
};
