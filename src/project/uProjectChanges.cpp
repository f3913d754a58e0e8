#include "uProjectChanges.h"

TProjectListeners::TToken TProjectListeners::Add(TListener listener) {
  auto token = std::make_shared<const TListener>(std::move(listener));
  FListeners.push_back(token);
  return token;
}

void TProjectListeners::Tell(const TProjectChange& change) {
  std::erase_if(FListeners, [](const auto& listener) { return listener.expired(); });
  const auto listeners = FListeners;
  for (const auto& listener : listeners)
    if (const auto token = listener.lock()) (*token)(change);
}
