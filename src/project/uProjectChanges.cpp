#include "uProjectChanges.h"

TProjectListeners::TToken TProjectListeners::Add(TListener listener, TBracketListener onBracket) {
  auto token = std::make_shared<const TEntry>(TEntry{std::move(listener), std::move(onBracket)});
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

void TProjectListeners::Tell(TChangeBracket bracket) {
  ForEach([&](const TEntry& entry) {
    if (entry.OnBracket) entry.OnBracket(bracket);
  });
}
