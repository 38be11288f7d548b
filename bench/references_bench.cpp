// The rewriting of names in a load keyword of a million rows, beside the reading of those rows.

#include "inp_InputFile.h"
#include "inp_KeywordEnm.h"
#include "inp_RawDataArrayImpl.h"
#include "inp_RemovePeriodVisitors.h"
#include "inp_ScopedNameVisitors.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>
#include <vector>

namespace
{

constexpr int c_rows = 1000000;
constexpr int c_oneName = 0;

/// Rows of *BOUNDARY in one text; a name of its own in every `namedEvery`-th row, numbers in the others. With
/// c_oneName all rows have the same short name.
struct Lines
{
  explicit Lines(int namedEvery)
  {
    for (int i = 0; i < c_rows; ++i)
    {
      ends.push_back(text.size());
      if (namedEvery == c_oneName)
      {
        text += "TIP,1,5.";
        continue;
      }
      text += i % namedEvery == 0 ? "Assy.PART-1-1.SET" + std::to_string(i) : std::to_string(i + 1);
      text += ", 1, 3, 0.5";
    }
    ends.push_back(text.size());
    text.append(16, ' '); // AppendLine reads ahead
  }

  std::string text;
  std::vector<std::size_t> ends;
};

/// As the reader stores them.
inp_Keyword Read(Lines const& lines)
{
  inp_Keyword keyword(inp_kwBoundary);
  auto& rows = dynamic_cast<inp_RawDataArrayImpl&>(keyword.data.Impl());
  for (std::size_t i = 0; i + 1 < lines.ends.size(); ++i)
  {
    rows.AppendLine(lines.text.data() + lines.ends[i], lines.ends[i + 1] - lines.ends[i]);
  }
  return keyword;
}

void StoringTheRows(benchmark::State& state)
{
  Lines const lines(static_cast<int>(state.range(0)));
  for (auto _ : state)
  {
    benchmark::DoNotOptimize(Read(lines));
  }
}

/// Reading from a file, the whole road of a line.
void ReadingTheDeck(benchmark::State& state)
{
  Lines const lines(static_cast<int>(state.range(0)));
  std::string const path = "/tmp/references_bench.inp";
  std::FILE* const file = std::fopen(path.c_str(), "wb");
  std::fputs("*BOUNDARY\n", file);
  for (std::size_t i = 0; i + 1 < lines.ends.size(); ++i)
  {
    std::fwrite(lines.text.data() + lines.ends[i], 1, lines.ends[i + 1] - lines.ends[i], file);
    std::fputc('\n', file);
  }
  std::fclose(file);
  for (auto _ : state)
  {
    inp_InputFile deck;
    deck.Parse(path.c_str());
    benchmark::DoNotOptimize(deck.keywords.Length());
  }
  std::remove(path.c_str());
}

template <class Visitor>
void Walk(benchmark::State& state, Visitor& visitor)
{
  Lines const lines(static_cast<int>(state.range(0)));
  for (auto _ : state)
  {
    state.PauseTiming();
    inp_Keyword keyword = Read(lines);
    state.ResumeTiming();
    visitor.Visit(keyword);
    state.PauseTiming();
    keyword = inp_Keyword();
    state.ResumeTiming();
  }
}

void RemovingPeriods(benchmark::State& state)
{
  inp_ModelParameters const model;
  inp_RemovePeriodSetVisitor visitor(model);
  Walk(state, visitor);
}

void TakingTheAssemblysNameAway(benchmark::State& state)
{
  inp_ModelParameters const model;
  inp_ScopedNameSetVisitor visitor({}, {}, {}, {}, "ASSY", model);
  Walk(state, visitor);
}

/// Puts an instance's name in front of every field: each row becomes longer.
void PuttingAnInstanceInFront(benchmark::State& state)
{
  struct Scoping : inp_SetFixupVisitor
  {
    explicit Scoping(inp_ModelParameters const& model) : inp_SetFixupVisitor({}, {}, {}, {}, model)
    {
    }
    cow_String FixupIdOrSet(inp_Keyword const&, cow_String const& value, inpM_SetMap const&,
                            inpM_IdMap const&, cow_String const&, cow_String const&,
                            cow_String const&, inp_SetType, cow_String const&) override
    {
      return "PART-1-1." + value;
    }
    bool AnswersByName() const override { return true; }
  };
  inp_ModelParameters const model;
  Scoping visitor(model);
  Walk(state, visitor);
}

} // namespace

// One name in all rows; a name of its own in every row, in every hundredth, in none.
#define INP_BENCH(name)                                                                            \
  BENCHMARK(name)->Arg(c_oneName)->Arg(1)->Arg(100)->Arg(c_rows + 1)->Unit(benchmark::kMillisecond)
INP_BENCH(StoringTheRows);
INP_BENCH(ReadingTheDeck);
INP_BENCH(RemovingPeriods);
INP_BENCH(TakingTheAssemblysNameAway);
INP_BENCH(PuttingAnInstanceInFront);

BENCHMARK_MAIN();
