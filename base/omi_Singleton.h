#pragma once

/// The process's one object of a class, built at first use. It is never destroyed, so that it
/// serves to the very end of the process. Building is safe from several threads; use is as safe as
/// the class is.
template <class T>
class omi_Singleton
{
public:
  omi_Singleton() = delete;

  static T& Instance()
  {
    static T* const instance = new T;
    return *instance;
  }
};
