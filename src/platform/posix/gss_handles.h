#pragma once

#include <gssapi/gssapi.h>
#include <gssapi/gssapi_ext.h>

#include <string>

namespace varnhold::platform::posix {

/// The NTLM mechanism, 1.3.6.1.4.1.311.2.2.10, for one call.
class NtlmMechanism {
 public:
  gss_OID oid() { return &oid_; }
  gss_OID_set set() { return &set_; }

 private:
  gss_OID_desc oid_{10, const_cast<char*>("\x2b\x06\x01\x04\x01\x82\x37\x02\x02\x0a")};
  gss_OID_set_desc set_{1, &oid_};
};

/// A name that GSSAPI made of a text of this type; none when it makes none of it.
class OwnedGssName {
 public:
  OwnedGssName(const std::string& text, gss_OID type) {
    gss_buffer_desc buffer{text.size(), const_cast<char*>(text.data())};
    OM_uint32 minor = 0;
    if (GSS_ERROR(gss_import_name(&minor, &buffer, type, &name_))) name_ = GSS_C_NO_NAME;
  }
  ~OwnedGssName() {
    OM_uint32 minor = 0;
    if (name_ != GSS_C_NO_NAME) gss_release_name(&minor, &name_);
  }
  OwnedGssName(const OwnedGssName&) = delete;
  OwnedGssName& operator=(const OwnedGssName&) = delete;

  [[nodiscard]] gss_name_t get() const { return name_; }
  explicit operator bool() const { return name_ != GSS_C_NO_NAME; }

 private:
  gss_name_t name_ = GSS_C_NO_NAME;
};

/// A token that GSSAPI made.
class OwnedGssToken {
 public:
  OwnedGssToken() = default;
  ~OwnedGssToken() {
    OM_uint32 minor = 0;
    gss_release_buffer(&minor, &buffer_);
  }
  OwnedGssToken(const OwnedGssToken&) = delete;
  OwnedGssToken& operator=(const OwnedGssToken&) = delete;

  gss_buffer_t get() { return &buffer_; }
  [[nodiscard]] const gss_buffer_desc& buffer() const { return buffer_; }

 private:
  gss_buffer_desc buffer_ = GSS_C_EMPTY_BUFFER;
};

}  // namespace varnhold::platform::posix
