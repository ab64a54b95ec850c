#pragma once
// What a certificate or a host key is known by.

#include <string>
#include <string_view>

namespace mrd::ftp {

/// "SHA256:" and the digest in base 64, as tools for host keys show it.
std::string fingerprintOfKey(std::string_view key);

/// Where certificates are looked for and left.
struct CertificateWatch {
  /// A server with this fingerprint is accepted without further proof, and no other one; empty: proof is needed.
  const std::string* trusted;
  /// Receives the fingerprint of the server's certificate.
  std::string* shown;
};

/// Makes the TLS library's context (an SSL_CTX) tell and accept certificates so. `watch` must outlive the context.
void watchCertificates(void* context, const CertificateWatch& watch);

} // namespace mrd::ftp
