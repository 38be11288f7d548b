#pragma once

#include "DeckFiles.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <linux/capability.h>
#include <optional>
#include <string>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

/// A run of a program: its exit status (below 0: ended by that signal), and what it wrote.
struct ProgramRun
{
  int status = 0;
  std::string out;
  std::string err;

  bool operator==(ProgramRun const&) const = default;
};

inline std::ostream& operator<<(std::ostream& stream, ProgramRun const& run)
{
  return stream << "status " << run.status << "\n--- out\n" << run.out << "--- err\n" << run.err;
}

/// Starts a program in a folder of its own, with its output in files beside.
class Program
{
public:
  Program(std::string const& path, std::string const& folder) : m_path(path), m_folder(folder) {}

  /// Standard output goes to this file or device.
  Program& Output(std::string const& path)
  {
    m_output = path;
    return *this;
  }
  /// Standard output goes to an open descriptor; -1 leaves it closed.
  Program& OutputTo(int descriptor)
  {
    m_outputDescriptor = descriptor;
    return *this;
  }
  /// A limit of the system on the program, RLIMIT_FSIZE for one.
  Program& Limit(int resource, rlim_t value)
  {
    m_resource = resource;
    m_limit = value;
    return *this;
  }
  /// A program of the superuser obeys the permissions of files as others must.
  Program& BoundByPermissions()
  {
    m_isBound = true;
    return *this;
  }
  Program& Environment(std::string const& name, std::string const& value)
  {
    m_environment.emplace_back(name, value);
    return *this;
  }

  pid_t Start(std::vector<std::string> const& arguments) const
  {
    pid_t const child = ::fork();
    if (child == 0)
      Become(arguments);
    return child;
  }

  /// Waits for the end; a program that takes longer than 20 s is killed.
  ProgramRun Finish(pid_t child) const
  {
    int status = 0;
    auto const deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (::waitpid(child, &status, WNOHANG) == 0)
    {
      if (std::chrono::steady_clock::now() > deadline)
        ::kill(child, SIGKILL);
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    int const code = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    bool const isRead = m_output.empty() && !m_outputDescriptor.has_value();
    return {code, isRead ? TextOfFile(OutFile()) : "", TextOfFile(ErrFile())};
  }

  ProgramRun Run(std::vector<std::string> const& arguments) const
  {
    return Finish(Start(arguments));
  }

private:
  std::string OutFile() const { return m_folder + "/.out"; }
  std::string ErrFile() const { return m_folder + "/.err"; }

  [[noreturn]] void Become(std::vector<std::string> const& arguments) const
  {
    std::vector<char*> words{const_cast<char*>("inpdeck")};
    for (std::string const& argument : arguments)
      words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    for (auto const& [name, value] : m_environment)
      ::setenv(name.c_str(), value.c_str(), 1);
    int const flags = O_WRONLY | O_CREAT | O_TRUNC;
    int const out = m_outputDescriptor.value_or(
      ::open(m_output.empty() ? OutFile().c_str() : m_output.c_str(), flags, 0600));
    int const err = ::open(ErrFile().c_str(), flags, 0600);
    ::dup2(err, STDERR_FILENO);
    out < 0 ? ::close(STDOUT_FILENO) : ::dup2(out, STDOUT_FILENO);
    if (m_isBound && ::geteuid() == 0)
      for (int const privilege : {CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH})
        ::prctl(PR_CAPBSET_DROP, privilege);
    rlimit const limit{m_limit, m_limit};
    bool const isSet = m_resource < 0 || ::setrlimit(m_resource, &limit) == 0;
    if (isSet && ::chdir(m_folder.c_str()) == 0)
      ::execv(m_path.c_str(), words.data());
    ::_exit(127);
  }

  std::string m_path;
  std::string m_folder;
  std::string m_output;
  std::optional<int> m_outputDescriptor;
  int m_resource = -1;
  rlim_t m_limit = 0;
  bool m_isBound = false;
  std::vector<std::pair<std::string, std::string>> m_environment;
};
