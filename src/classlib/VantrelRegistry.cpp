#include "VantrelRegistry.h"

#include <fmt/format.h>

#include <utility>

#include "FoundationTexts.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "VantrelLinkedLists.h"
#include "VantrelSets.h"
#include "VantrelTypes.h"

bool TVantrelClassRegistry::FExists = false;

TVantrelClassRegistry::TVantrelClassRegistry() {
  if (std::exchange(FExists, true))
    throw EVantrelSingletonError(FormatText(FoundationTexts::SecondInstance, "TVantrelClassRegistry"));
}

TVantrelClassRegistry::~TVantrelClassRegistry() {
  FExists = false;
}

void TVantrelClassRegistry::AddClass(const TVantrelClass& classReference) {
  if (ContainsClass(classReference)) return;
  FClasses.Put(classReference.Name, CreateVantrel<TVantrelClassRegistryEntry>(classReference).release());
}

void TVantrelClassRegistry::RemoveClass(const TVantrelClass& classReference) {
  TVantrelDeleter()(FClasses.Remove(classReference.Name));
}

bool TVantrelClassRegistry::ContainsClass(const TVantrelClass& classReference) const {
  return FClasses.ContainsKey(classReference.Name);
}

const TVantrelClass* TVantrelClassRegistry::GetClass(std::string_view name) const {
  const auto* const entry = static_cast<const TVantrelClassRegistryEntry*>(FClasses.Get(name));
  return entry == nullptr ? nullptr : &entry->Class();
}

namespace {
template <class T>
TVantrelPtr<TVantrelObject> Create() {
  return CreateVantrel<T>();
}

constexpr TVantrelClass FoundationClasses[] = {
    {"TVantrelHashMap", nullptr, &Create<TVantrelHashMap>},
    {"TVantrelHashSet", nullptr, &Create<TVantrelHashSet>},
    {"TVantrelArrayList", nullptr, &Create<TVantrelArrayList>},
    {"TVantrelLinkedList", nullptr, &Create<TVantrelLinkedList>},
    {"TVantrelReference", nullptr, &Create<TVantrelReference>},
    {"TVantrelBinary", nullptr, &Create<TVantrelBinary>},
    {"TVantrelBitmap", nullptr, &Create<TVantrelBitmap>},
    {"TVantrelIcon", nullptr, &Create<TVantrelIcon>},
    {"TVantrelBoolean", nullptr, &Create<TVantrelBoolean>},
    {"TVantrelChar", nullptr, &Create<TVantrelChar>},
    {"TVantrelSmallInt", nullptr, &Create<TVantrelSmallInt>},
    {"TVantrelShortInt", nullptr, &Create<TVantrelShortInt>},
    {"TVantrelLongInt", nullptr, &Create<TVantrelLongInt>},
    {"TVantrelInt64", nullptr, &Create<TVantrelInt64>},
    {"TVantrelByte", nullptr, &Create<TVantrelByte>},
    {"TVantrelWord", nullptr, &Create<TVantrelWord>},
    {"TVantrelLongWord", nullptr, &Create<TVantrelLongWord>},
    {"TVantrelSingle", nullptr, &Create<TVantrelSingle>},
    {"TVantrelDouble", nullptr, &Create<TVantrelDouble>},
    {"TVantrelExtended", nullptr, &Create<TVantrelExtended>},
    {"TVantrelCurrency", nullptr, &Create<TVantrelCurrency>},
    {"TVantrelDateTime", nullptr, &Create<TVantrelDateTime>},
    {"TVantrelString", nullptr, &Create<TVantrelString>},
    {"TVantrelUtf8String", nullptr, &Create<TVantrelUtf8String>},
    {"TVantrelGuid", nullptr, &Create<TVantrelGuid>},
};
}  // namespace

void RegisterLibraryClasses(TVantrelClassRegistry& registry) {
  for (const TVantrelClass& one : FoundationClasses) registry.AddClass(one);
}
