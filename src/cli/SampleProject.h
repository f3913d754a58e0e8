#pragma once

#include <cstdint>

#include "uProject.h"

/// How a sample project shall be. Every student takes every subject.
struct TSampleOptions {
  int Students = 120;
  int Subjects = 12;  ///< at most SampleNames::Subjects has
  int Classes = 6;    ///< from three on, classes of all grade types occur
  std::uint64_t Seed = 1;
  int Edition = 8;  ///< first part of the product version
};

/// Fills a cleared project with a school that could be: names, classes, catalogues, columns, grades entered in part,
/// absences and remarks. The same options give the same project, object ids included, on every platform.
void BuildSample(TMyTessaronProject& project, const TSampleOptions& options);
