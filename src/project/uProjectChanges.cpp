#include "uProjectChanges.h"

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
