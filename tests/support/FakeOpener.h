#pragma once

#include <future>
#include <vector>

#include "VantrelFileLauncher.h"

/// Keeps what is to be opened and answers with Code; a program that it starts ends when End is set.
struct FakeOpener : TVantrelOpener {
  FakeOpener() { TVantrelFileLauncher::SetOpener(this); }
  FakeOpener(const FakeOpener&) = delete;
  FakeOpener& operator=(const FakeOpener&) = delete;
  ~FakeOpener() override { TVantrelFileLauncher::SetOpener(nullptr); }
  std::uint32_t Open(const TVantrelLaunch& launch, std::function<void()>* wait) override {
    Opened.push_back(launch);
    if (wait != nullptr) *wait = [end = End.get_future().share()] { end.wait(); };
    return Code;
  }
  std::vector<TVantrelLaunch> Opened;
  std::uint32_t Code = 33;
  std::promise<void> End;
};
