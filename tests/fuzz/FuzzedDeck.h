#pragma once

#include "cow_String.h"
#include "inp_InputFile.h"
#include "wip_WIP.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

/// What every run must come up to. A failure ends the program, which leaves the input behind.
void Require(bool holds);
/// The same, and shows both texts when they differ.
void RequireEqual(std::string const& text, std::string const& other);

/// A file in memory that is opened by its name.
class MemoryFile
{
public:
  explicit MemoryFile(char const* purpose);
  void Write(std::string const& text) const;
  std::string const& Name() const { return m_name; }

private:
  int m_descriptor;
  std::string m_name;
};

/// A run's bytes as files that a deck may name: up to the first NUL byte they are the deck, and behind it
/// the file "d.inp" of the include path. Nothing is written to disk but, once, the link to that file.
class FuzzedDeck
{
public:
  /// `above` stands ahead of the deck in every run.
  explicit FuzzedDeck(std::string above = "");
  ~FuzzedDeck();

  void Fill(std::uint8_t const* data, std::size_t size) const;

  cow_String File() const { return m_deck.Name().c_str(); }
  cow_String Folder() const { return m_folder.c_str(); }

private:
  std::string m_above;
  MemoryFile m_deck{"deck"};
  MemoryFile m_data{"d.inp"};
  std::string m_folder;
};

/// Gets every message, and sees to it that each has words and the code of its row.
class Listener : public wip_WipReporter
{
public:
  /// The process's one, at work from its first use on.
  static Listener& Instance();
  void Message(wip_Message const& message) override;

  /// The messages since the last call, a line each.
  std::string TakeMessages();
  /// Called with each message besides.
  std::function<void(atr_Origin const&)> also = [](atr_Origin const&) {};

private:
  Listener();
  std::string m_messages;
};

/// Runs a stage. False when it raised what a deck may make it raise, which is a row that is no node, or
/// a file in UTF-16.
bool Runs(std::function<void()> const& stage);

/// Reads the deck, completes its keywords and sums them up. False when that came to an early end.
bool Expand(FuzzedDeck const& deck, inp_InputFile& input);

/// The same, and then the hierarchy. False for a deck without parts as well.
bool Organize(FuzzedDeck const& deck, inp_InputFile& input);

cow_List<inp_Keyword> DeepCopy(cow_List<inp_Keyword> const& keywords);
std::string Listing(cow_List<inp_Keyword> const& keywords);
/// No line is longer than a deck's may be.
bool FitsLines(std::string_view text);
