#pragma once

#include <functional>
#include <ranges>
#include <type_traits>
#include <vector>

/// What `get` gives of each element, in their order.
template <class TRange, class TGet>
auto Collected(TRange&& range, TGet get) {
  std::vector<std::remove_cvref_t<std::invoke_result_t<TGet, std::ranges::range_reference_t<TRange>>>> all;
  for (auto&& element : range) all.push_back(std::invoke(get, element));
  return all;
}
