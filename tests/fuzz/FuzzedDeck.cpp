#include "FuzzedDeck.h"

#include "eli_eostream.h"
#include "inp_DistributionTableDB.h"
#include "inp_ParserExceptions.h"
#include "omi_Singleton.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>
#include <utility>

/// Makes a run cost half: no stacks are kept of allocations, and freed memory waits for a few runs only
/// before it is used again. To see where memory at fault came from, run the one deck again with
/// ASAN_OPTIONS=malloc_context_size=30.
extern "C" char const* __asan_default_options()
{
  return "malloc_context_size=1:quarantine_size_mb=2:thread_local_quarantine_size_kb=512";
}

void Require(bool holds)
{
  if (!holds)
  {
    std::abort();
  }
}

void RequireEqual(std::string const& text, std::string const& other)
{
  if (text != other)
  {
    std::fprintf(stderr, "---- one\n%s---- other\n%s----\n", text.c_str(), other.c_str());
    std::abort();
  }
}

MemoryFile::MemoryFile(char const* purpose)
  : m_descriptor(::memfd_create(purpose, MFD_CLOEXEC)),
    m_name("/proc/self/fd/" + std::to_string(m_descriptor))
{
}

void MemoryFile::Write(std::string const& text) const
{
  Require(::ftruncate(m_descriptor, 0) == 0 &&
          ::pwrite(m_descriptor, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size()));
}

FuzzedDeck::FuzzedDeck(std::string above) : m_above(std::move(above))
{
  std::string folder = (std::filesystem::temp_directory_path() / "fuzz-XXXXXX").string();
  Require(::mkdtemp(folder.data()) != nullptr);
  m_folder = folder;
  std::filesystem::create_symlink(m_data.Name(), m_folder + "/d.inp");
}

FuzzedDeck::~FuzzedDeck()
{
  std::error_code ignored;
  std::filesystem::remove_all(m_folder, ignored);
}

void FuzzedDeck::Fill(std::uint8_t const* data, std::size_t size) const
{
  std::string_view const text(reinterpret_cast<char const*>(data), size);
  std::size_t const cut = std::min(text.find('\0'), size);
  m_deck.Write(m_above + std::string(text.substr(0, cut)));
  m_data.Write(std::string(text.substr(std::min(cut + 1, size))));
}

Listener::Listener() { omi_Singleton<wip_WIP>::Instance().AddReporter(*this); }

Listener& Listener::Instance()
{
  static Listener listener;
  return listener;
}

void Listener::Message(wip_Message const& message)
{
  m_messages.append(message.text.View()).append("\n");
  atr_Origin const* const origin = message.text.Origin();
  Require(message.text.Length() > 0 && origin != nullptr && *origin->code != '\0' &&
          origin->line >= 0);
  also(*origin);
}

std::string Listener::TakeMessages() { return std::exchange(m_messages, {}); }

bool Runs(std::function<void()> const& stage)
{
  static constexpr std::array<std::string_view, 5> raised = {
    "FileIsUtf16", "NodeLabelNotInteger", "NodeLabelTooLong", "NodeLabelNotPositive",
    "NodeCoordinatesInvalid"};
  try
  {
    stage();
    return true;
  }
  catch (nex_AtrException const& refused)
  {
    atr_String const report = refused.UserReport();
    Require(report.Origin() != nullptr &&
            std::find(raised.begin(), raised.end(), report.Origin()->code) != raised.end());
    return false;
  }
}

bool Expand(FuzzedDeck const& deck, inp_InputFile& input)
{
  Listener::Instance().TakeMessages();
  thr_ThreadSingleton<inp_DistributionTableDB>::Finalize(); // what decks define stays in it
  input.includePath = deck.Folder();
  return Runs(
    [&]
    {
      input.Parse(deck.File());
      input.ExpandKeywords();
      input.setModelParameters();
    });
}

bool Organize(FuzzedDeck const& deck, inp_InputFile& input)
{
  if (!Expand(deck, input) || input.FlatRoadMissing())
  {
    return false;
  }
  input.ReorganizeKeywords(false);
  return true;
}

cow_List<inp_Keyword> DeepCopy(cow_List<inp_Keyword> const& keywords)
{
  cow_List<inp_Keyword> copies;
  for (inp_Keyword const& keyword : keywords)
  {
    copies.Append(keyword.DeepCopy());
  }
  return copies;
}

std::string Listing(cow_List<inp_Keyword> const& keywords)
{
  std::ostringstream text;
  eli_eostream lines(text);
  for (inp_Keyword const& keyword : keywords)
  {
    keyword.Print(lines, true);
  }
  lines.Flush();
  return text.str();
}

bool FitsLines(std::string_view text)
{
  while (!text.empty())
  {
    std::size_t const length = std::min(text.find('\n'), text.size());
    if (length > 255)
    {
      return false;
    }
    text.remove_prefix(std::min(length + 1, text.size()));
  }
  return true;
}
