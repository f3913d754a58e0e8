#include "uProjectChanges.h"

#include <bit>

bool IsSameValue(const TVariant& one, const TVariant& other) {
  if (one.Kind() != other.Kind()) return false;
  if (one.Kind() == TVariantKind::Text) return one.AsText() == other.AsText();
  if (one.Kind() == TVariantKind::Float || one.Kind() == TVariantKind::DateTime)
    return std::bit_cast<std::uint64_t>(one.AsFloat()) == std::bit_cast<std::uint64_t>(other.AsFloat());
  return one == other;
}

TProjectListeners::TToken TProjectListeners::Add(TListener listener, TMarkListener onMark) {
  auto token = std::make_shared<const TEntry>(TEntry{std::move(listener), std::move(onMark)});
  FListeners.push_back(token);
  return token;
}

template <class TCall>
void TProjectListeners::ForEach(TCall call) {
  std::erase_if(FListeners, [](const auto& listener) { return listener.expired(); });
  const auto listeners = FListeners;
  for (const auto& listener : listeners)
    if (const auto token = listener.lock()) call(*token);
}

void TProjectListeners::Tell(const TProjectChange& change) {
  ForEach([&](const TEntry& entry) { entry.OnChange(change); });
}

void TProjectListeners::Tell(TChangeMark mark) {
  ForEach([&](const TEntry& entry) {
    if (entry.OnMark) entry.OnMark(mark);
  });
}
