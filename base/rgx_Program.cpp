#include "rgx_Program.h"

#include "rgx_Compiler.h"

#include <utility>

// The threads of one search.
class rgx_Program::Machine
{
public:
  Machine(rgx_Program const& program, std::string_view text)
    : m_program(program), m_text(text), m_mark(program.m_steps.size(), 0)
  {
    m_now.reserve(program.m_steps.size());
    m_next.reserve(program.m_steps.size());
  }

  bool Run(std::size_t from)
  {
    std::size_t at = from;
    BeginRound();
    for (;; ++at)
    {
      // Until a match is found, a new thread of the lowest rank starts at each position.
      bool const mayStart = !m_program.m_onlyAtBegin || at == 0;
      if (!m_found && mayStart)
        Enter(0, at, at);
      m_now.swap(m_next);
      BeginRound();
      if (m_now.empty() && (m_found || m_program.m_onlyAtBegin))
        break;
      StepAll(at);
      if (at >= m_text.size())
        break;
    }
    return m_found;
  }

  std::size_t start = 0;
  std::size_t end = 0;

private:
  struct Thread
  {
    int step;
    std::size_t start;
  };

  void BeginRound()
  {
    m_next.clear();
    ++m_round;
  }

  // Follows a thread to every step that takes a byte or matches, in order of rank.
  void Enter(int step, std::size_t from, std::size_t at)
  {
    m_stack.push_back(step);
    while (!m_stack.empty())
    {
      int const current = m_stack.back();
      m_stack.pop_back();
      std::size_t const index = static_cast<std::size_t>(current);
      if (m_mark[index] == m_round)
        continue;
      m_mark[index] = m_round;
      Step const& code = m_program.m_steps[index];
      switch (code.op)
      {
      case Op::Byte:
      case Op::Match:
        m_next.push_back({current, from});
        break;
      case Op::Split:
        m_stack.push_back(code.y);
        m_stack.push_back(code.x);
        break;
      case Op::Jump:
        m_stack.push_back(code.x);
        break;
      case Op::Begin:
        if (at == 0)
          m_stack.push_back(current + 1);
        break;
      case Op::End:
        if (at == m_text.size())
          m_stack.push_back(current + 1);
        break;
      }
    }
  }

  void StepAll(std::size_t at)
  {
    bool const hasByte = at < m_text.size();
    std::size_t const byte = hasByte ? static_cast<unsigned char>(m_text[at]) : 0;
    for (Thread const& thread : m_now)
    {
      Step const& code = m_program.m_steps[static_cast<std::size_t>(thread.step)];
      if (code.op == Op::Match)
      {
        // A match: threads of lower rank can no longer win.
        m_found = true;
        start = thread.start;
        end = at;
        return;
      }
      if (hasByte && m_program.m_classes[static_cast<std::size_t>(code.x)][byte])
        Enter(thread.step + 1, thread.start, at + 1);
    }
  }

  rgx_Program const& m_program;
  std::string_view m_text;
  std::vector<std::size_t> m_mark; // round in which a step was last entered
  std::vector<Thread> m_now;
  std::vector<Thread> m_next;
  std::vector<int> m_stack;
  std::size_t m_round = 0;
  bool m_found = false;
};

rgx_Program::rgx_Program(std::string_view pattern)
{
  rgx_Compiler(pattern, *this).Compile();
  // When every way to a step that takes a byte or matches leads through '^', a match can only begin at
  // position 0.
  std::vector<char> seen(m_steps.size(), 0);
  std::vector<int> open{0};
  m_onlyAtBegin = true;
  while (!open.empty())
  {
    int const current = open.back();
    open.pop_back();
    std::size_t const index = static_cast<std::size_t>(current);
    if (std::exchange(seen[index], char(1)) != 0)
      continue;
    Step const& step = m_steps[index];
    if (step.op == Op::Byte || step.op == Op::Match)
      m_onlyAtBegin = false;
    else if (step.op == Op::End)
      open.push_back(current + 1);
    else if (step.op != Op::Begin)
      open.push_back(step.x);
    if (step.op == Op::Split)
      open.push_back(step.y);
  }
}

bool rgx_Program::Search(std::string_view text, std::size_t from, std::size_t& start,
                         std::size_t& end) const
{
  Machine machine(*this, text);
  if (!machine.Run(from))
    return false;
  start = machine.start;
  end = machine.end;
  return true;
}
