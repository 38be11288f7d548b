// The yardstick for the reader: reads a file with read(2) into an aligned buffer of one mebibyte and
// converts every number in it with std::from_chars, to double where it has a point or an exponent and
// to int otherwise. Everything else is passed over. Nothing is stored.
//
// Prints the seconds, the megabytes (of 10^6 bytes) a second and a checksum of the numbers.

#include <charconv>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace
{

constexpr std::size_t blockSize = 1 << 20;
constexpr std::size_t carrySize = 4096;

// A block is read behind the space for what the block before left over of its last word.
alignas(64) char space[carrySize + blockSize];
char* const block = space + carrySize;

struct Sum
{
  long long integers = 0;
  double reals = 0;
  long long count = 0;
  long long bytes = 0;
};

enum Kind : std::uint8_t
{
  other,
  digit,
  sign,
  point,
  letter
};

struct Kinds
{
  Kind of[256];

  constexpr Kinds() : of()
  {
    for (int c = 'a'; c <= 'z'; ++c)
      of[c] = of[c - 'a' + 'A'] = letter;
    for (int c = '0'; c <= '9'; ++c)
      of[c] = digit;
    of[static_cast<int>('_')] = letter;
    of[static_cast<int>('+')] = of[static_cast<int>('-')] = sign;
    of[static_cast<int>('.')] = point;
  }
};
constexpr Kinds kinds;

Kind KindOf(char c) { return kinds.of[static_cast<unsigned char>(c)]; }

char const* SkipWord(char const* at, char const* end)
{
  while (at != end && KindOf(*at) != other)
    ++at;
  return at;
}

// An integer first; what it stops at tells whether the number is a real one after all.
char const* Convert(char const* at, char const* end, Sum& sum)
{
  char const* const first = *at == '+' ? at + 1 : at;
  int integer = 0;
  char const* rest = std::from_chars(first, end, integer).ptr;
  if (rest != end && (*rest == '.' || *rest == 'e' || *rest == 'E'))
  {
    double real = 0;
    rest = std::from_chars(first, end, real).ptr;
    sum.reals += real;
  }
  else
    sum.integers += integer;
  if (rest == first)
    return SkipWord(at, end);
  ++sum.count;
  return rest;
}

// The text ends where a word ends, so that no number is cut in two.
void ConvertAll(char const* at, char const* end, Sum& sum)
{
  while (at != end)
    switch (KindOf(*at))
    {
    case digit:
    case sign:
    case point:
      at = Convert(at, end, sum);
      break;
    case letter:
      at = SkipWord(at, end);
      break;
    case other:
      ++at;
    }
}

// Where the last word of a block begins; a word that fills the carry is taken as it is.
char* LastWord(char* begin, char* end)
{
  char* at = end;
  while (at != begin && KindOf(at[-1]) != other)
    --at;
  return static_cast<std::size_t>(end - at) < carrySize ? at : end;
}

bool ConvertFile(char const* name, Sum& sum)
{
  int const file = open(name, O_RDONLY);
  if (file < 0)
    return false;
  char* begin = block;
  ssize_t size = 0;
  while ((size = read(file, block, blockSize)) > 0)
  {
    sum.bytes += size;
    char* const end = block + size;
    char* const word = LastWord(begin, end);
    ConvertAll(begin, word, sum);
    begin = block - (end - word);
    std::memmove(begin, word, static_cast<std::size_t>(end - word));
  }
  ConvertAll(begin, block, sum);
  close(file);
  return size == 0;
}

} // namespace

int main(int argc, char** argv)
{
  if (argc != 2)
  {
    std::fprintf(stderr, "usage: bare_pass FILE\n");
    return 2;
  }
  Sum sum;
  auto const start = std::chrono::steady_clock::now();
  if (!ConvertFile(argv[1], sum))
  {
    std::fprintf(stderr, "bare_pass: cannot read '%s'\n", argv[1]);
    return 2;
  }
  double const seconds =
    std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  std::printf("%.4f s  %.1f MB/s  %lld numbers  checksum %lld %.6f\n", seconds,
              static_cast<double>(sum.bytes) / 1e6 / seconds, sum.count, sum.integers, sum.reals);
  return 0;
}
