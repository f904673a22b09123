#include "platform/windows/owner_only.h"

#include "platform/windows/owned_handle.h"

namespace varnhold::platform::windows {

OwnerOnly::OwnerOnly() {
  ready_ = build();
}

bool OwnerOnly::build() {
  HANDLE opened = nullptr;
  if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &opened)) return false;
  const OwnedHandle token(opened);
  DWORD used = 0;
  if (!GetTokenInformation(token.get(), TokenUser, user_.data(), sizeof user_, &used)) return false;
  auto* const sid = reinterpret_cast<TOKEN_USER*>(user_.data())->User.Sid;
  auto* const list = reinterpret_cast<ACL*>(list_.data());
  // Protected: the folder's own entries must not be added to ours.
  return InitializeAcl(list, sizeof list_, ACL_REVISION) &&
         AddAccessAllowedAce(list, ACL_REVISION, FILE_ALL_ACCESS, sid) &&
         InitializeSecurityDescriptor(&descriptor_, SECURITY_DESCRIPTOR_REVISION) &&
         SetSecurityDescriptorDacl(&descriptor_, TRUE, list, FALSE) &&
         SetSecurityDescriptorControl(&descriptor_, SE_DACL_PROTECTED, SE_DACL_PROTECTED);
}

}  // namespace varnhold::platform::windows
