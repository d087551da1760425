#include <cerrno>
#include <new>

#include "text/runtime_error.h"

namespace {

struct Mapping {
  int Error;
  int Code;
};

constexpr Mapping kMappings[]{
    {ENOENT, kFileNotFound},      {ENOTDIR, kPathNotFound},     {ELOOP, kPathFileAccess},
    {EACCES, kPermissionDenied},  {EPERM, kPermissionDenied},   {EROFS, kPermissionDenied},
    {ETXTBSY, kPermissionDenied}, {EBUSY, kPermissionDenied},   {EWOULDBLOCK, kPermissionDenied},
    {ENOSPC, kDiskFull},          {EDQUOT, kDiskFull},          {EFBIG, kDiskFull},
    {EIO, kDeviceIoError},        {ENAMETOOLONG, kBadFileName}, {EINVAL, kBadFileName},
    {EILSEQ, kBadFileName},       {ENOMEM, kOutOfMemory},
};

}  // namespace

int CodeFromErrno(int error) {
  for (const Mapping& mapping : kMappings)
    if (mapping.Error == error) return mapping.Code;
  return kPathFileAccess;
}

int CodeFromException(const std::exception& error) {
  if (const auto* numbered = dynamic_cast<const RuntimeError*>(&error)) return numbered->Code;
  if (dynamic_cast<const std::bad_alloc*>(&error)) return kOutOfMemory;
  return kInvalidCall;
}
