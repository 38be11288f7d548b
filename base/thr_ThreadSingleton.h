#pragma once

#include <atomic>
#include <mutex>

/// The finalizers of one thread's singletons.
///
/// They run when the thread ends, or earlier by FinalizeAll: lower destruct levels first, within a
/// level the last registered first. What a singleton needs until its end has the higher level.
class thr_ThrSingletonRegistry
{
public:
  using Finalizer = void (*)();

  static void Register(Finalizer finalizer, int destructLevel);
  /// Finalizes this thread's singletons, also those that a finalizer builds. A singleton that is asked for
  /// afterwards is built anew.
  static void FinalizeAll();
};

/// Base of a class with one object a thread: `class X : public thr_ThreadSingletonBase<X>`.
template <class T>
class thr_ThreadSingletonBase
{
public:
  int DestructLevel() const noexcept { return m_destructLevel; }

protected:
  thr_ThreadSingletonBase() = default;
  ~thr_ThreadSingletonBase() = default;
  thr_ThreadSingletonBase(thr_ThreadSingletonBase const&) = delete;
  thr_ThreadSingletonBase& operator=(thr_ThreadSingletonBase const&) = delete;

  /// To be called by the constructor of T; 0 otherwise.
  void SetDestructLevel(int level) noexcept { m_destructLevel = level; }

private:
  int m_destructLevel = 0;
};

/// Access to the one object of T that this thread has. A private constructor needs
/// `friend class thr_ThreadSingleton<T>`.
template <class T>
class thr_ThreadSingleton
{
public:
  thr_ThreadSingleton() = delete;

  /// Built at first use; good until Finalize or the end of the thread.
  static T& Instance()
  {
    if (s_instance == nullptr)
    {
      s_instance = new T;
      thr_ThrSingletonRegistry::Register(&Finalize, s_instance->DestructLevel());
    }
    return *s_instance;
  }

  /// Destroys this thread's object; without effect when there is none.
  static void Finalize()
  {
    T* const instance = s_instance;
    s_instance = nullptr;
    delete instance;
  }

private:
  inline static thread_local T* s_instance = nullptr;
};

/// The process's one object of T, built at first use by any thread, and destroyed by Finalize only.
template <class T>
class thr_GlobalSingleton
{
public:
  thr_GlobalSingleton() = delete;

  static T& Instance()
  {
    T* instance = s_instance.load(std::memory_order_acquire);
    if (instance == nullptr)
    {
      std::lock_guard<std::mutex> const lock(s_mutex);
      instance = s_instance.load(std::memory_order_relaxed);
      if (instance == nullptr)
      {
        instance = new T;
        s_instance.store(instance, std::memory_order_release);
      }
    }
    return *instance;
  }

  /// For when no other thread uses the object any more; the next Instance builds it anew.
  static void Finalize()
  {
    std::lock_guard<std::mutex> const lock(s_mutex);
    delete s_instance.exchange(nullptr);
  }

private:
  inline static std::atomic<T*> s_instance{nullptr};
  inline static std::mutex s_mutex;
};
