#include "uTessaronSession.h"

#include "CentralTexts.h"
#include "VantrelI18n.h"

void TDBUser::Assign(const TVantrelObject& source) {
  const auto* user = dynamic_cast<const TDBUser*>(&source);
  if (user == nullptr) return TVantrelObject::Assign(source);
  Username = user->Username;
  Password = user->Password;
  Firstname = user->Firstname;
  Middlename = user->Middlename;
  Lastname = user->Lastname;
}

TTessaronSession::TTessaronSession()
    : FConnection(CreateVantrel<TDBConnection>()), FPrivileges(CreateVantrel<TTessaronPrivileges>(*this)) {}

std::string TTessaronSession::ProductName() const {
  return ResourceText(FModule == TApplicationKind::akMyTessaron ? CentralTexts::ProductMyTessaron
                                                                : CentralTexts::ProductTessaron);
}

TVantrelPtr<TDBUser> TTessaronSession::TempUser(std::string_view username, std::string_view password,
                                                std::string_view firstname, std::string_view middlename,
                                                std::string_view lastname) {
  auto user = CreateVantrel<TDBUser>();
  user->Username = username;
  user->Password = password;
  user->Firstname = firstname;
  user->Middlename = middlename;
  user->Lastname = lastname;
  return user;
}

TVantrelPtr<TDBUser> TTessaronSession::TempUser(const TDBUser& otherUser) {
  auto user = CreateVantrel<TDBUser>();
  user->Assign(otherUser);
  return user;
}
