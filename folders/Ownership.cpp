#include "folders/Ownership.h"

#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <string>

#include "files/Place.h"

namespace {

/// This user is in the group, and the group's own list names nobody else.
bool listsOnly(const group& entry, const passwd& user) {
  bool member = entry.gr_gid == user.pw_gid;
  for (char** name = entry.gr_mem; *name; ++name) {
    if (user.pw_name != std::string(*name)) return false;
    member = true;
  }
  return member;
}

/// Nobody else has the group as the one of their account.
bool isNobodyElses(gid_t id) {
  bool elses = false;
  ::setpwent();
  while (const passwd* account = ::getpwent())
    elses = elses || (account->pw_gid == id && account->pw_uid != ::geteuid());
  ::endpwent();
  return !elses;
}

bool isGroupOfThisUserAlone(gid_t id) {
  const passwd* user = ::getpwuid(::geteuid());
  const group* entry = ::getgrgid(id);
  return user && entry && listsOnly(*entry, *user) && isNobodyElses(id);
}

bool hasAccessList(const std::filesystem::path& place) {
  return ::getxattr(place.c_str(), "system.posix_acl_access", nullptr, 0) > 0;
}

}  // namespace

bool isOnlyThisUsers(const std::filesystem::path& place) {
  struct stat link {};
  struct stat status {};
  if (::lstat(place.c_str(), &link) != 0 || !isTrusted(link.st_uid)) return false;
  if (::stat(place.c_str(), &status) != 0 || status.st_uid != ::geteuid()) return false;
  if ((status.st_mode & S_IWOTH) != 0) return false;
  const bool groupMay = (status.st_mode & S_IWGRP) != 0;
  return !groupMay || (!hasAccessList(place) && isGroupOfThisUserAlone(status.st_gid));
}
