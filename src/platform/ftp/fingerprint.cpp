#include "platform/ftp/fingerprint.h"

#include <array>
#include <openssl/evp.h>
#include <openssl/ssl.h>
#include <openssl/x509.h>

namespace mrd::ftp {
namespace {

std::string digestAsText(const unsigned char* digest, unsigned size)
{
  // Base 64 takes four characters for three bytes, and a closing zero.
  std::array<unsigned char, EVP_MAX_MD_SIZE * 2> text{};
  const int length = EVP_EncodeBlock(text.data(), digest, static_cast<int>(size));
  std::string out(text.begin(), text.begin() + length);
  while (out.ends_with('='))
    out.pop_back();
  return "SHA256:" + out;
}

/// The context keeps the two pointers, each in a place of its own, for the check has room for one argument only.
int placeOfTrusted()
{
  static const int place = SSL_CTX_get_ex_new_index(0, nullptr, nullptr, nullptr, nullptr);
  return place;
}

int checkCertificate(X509_STORE_CTX* chain, void* context)
{
  auto* const ctx = static_cast<SSL_CTX*>(context);
  const auto& trusted = *static_cast<const std::string*>(SSL_CTX_get_ex_data(ctx, placeOfTrusted()));
  auto& shown = *static_cast<std::string*>(SSL_CTX_get_app_data(ctx));
  std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
  unsigned size = 0;
  X509* const certificate = X509_STORE_CTX_get0_cert(chain);
  if (certificate == nullptr || X509_digest(certificate, EVP_sha256(), digest.data(), &size) != 1)
    return 0;
  shown = digestAsText(digest.data(), size);
  if (trusted.empty())
    return X509_verify_cert(chain);
  const bool isTrusted = shown == trusted;
  X509_STORE_CTX_set_error(chain, isTrusted ? X509_V_OK : X509_V_ERR_CERT_UNTRUSTED);
  return isTrusted ? 1 : 0;
}

} // namespace

std::string fingerprintOfKey(std::string_view key)
{
  std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
  unsigned size = 0;
  if (EVP_Digest(key.data(), key.size(), digest.data(), &size, EVP_sha256(), nullptr) != 1)
    return "";
  return digestAsText(digest.data(), size);
}

void watchCertificates(void* context, const CertificateWatch& watch)
{
  auto* const ctx = static_cast<SSL_CTX*>(context);
  SSL_CTX_set_ex_data(ctx, placeOfTrusted(), const_cast<std::string*>(watch.trusted));
  SSL_CTX_set_app_data(ctx, watch.shown);
  SSL_CTX_set_cert_verify_callback(ctx, checkCertificate, ctx);
}

} // namespace mrd::ftp
