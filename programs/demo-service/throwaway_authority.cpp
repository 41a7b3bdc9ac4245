#include "throwaway_authority.h"

#include <openssl/bio.h>
#include <openssl/ec.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/x509v3.h>

#include <cstdint>
#include <memory>
#include <stdexcept>

namespace quillbox {
namespace {

void Require(bool succeeded) {
  if (!succeeded) throw std::runtime_error("the certificates could not be made");
}

void SetName(X509* certificate, const std::string& name) {
  const auto* text = reinterpret_cast<const unsigned char*>(name.c_str());
  Require(X509_NAME_add_entry_by_txt(X509_get_subject_name(certificate), "CN", MBSTRING_UTF8, text,
                                     -1, -1, 0) == 1);
}

void SetSerialNumber(X509* certificate) {
  std::uint64_t serial = 0;
  Require(RAND_bytes(reinterpret_cast<unsigned char*>(&serial), sizeof serial) == 1);
  Require(ASN1_INTEGER_set_uint64(X509_get_serialNumber(certificate), serial >> 1) == 1);
}

void AddExtension(X509* certificate, X509* issuer, int kind, const std::string& value) {
  X509V3_CTX context;
  X509V3_set_ctx(&context, issuer, certificate, nullptr, nullptr, 0);
  const std::shared_ptr<X509_EXTENSION> extension(
      X509V3_EXT_conf_nid(nullptr, &context, kind, value.c_str()), X509_EXTENSION_free);
  Require(extension && X509_add_ext(certificate, extension.get(), -1) == 1);
}

long SecondsOf(std::chrono::hours time) {
  return static_cast<long>(std::chrono::seconds(time).count());
}

// A key and an unsigned certificate for it.
Certificate Begin(const std::string& name, const CertificateWish& wish) {
  Certificate made{{X509_new(), X509_free}, {EVP_EC_gen("P-256"), EVP_PKEY_free}};
  X509* const certificate = made.Public.get();
  Require(certificate != nullptr && made.Key != nullptr);
  Require(X509_set_version(certificate, 2) == 1);  // counted from 0: version 3
  SetSerialNumber(certificate);
  SetName(certificate, name);
  Require(X509_gmtime_adj(X509_getm_notBefore(certificate), SecondsOf(wish.From)) != nullptr);
  Require(X509_gmtime_adj(X509_getm_notAfter(certificate), SecondsOf(wish.To)) != nullptr);
  Require(X509_set_pubkey(certificate, made.Key.get()) == 1);
  return made;
}

bool HasFullNumbers(const X509* certificate) {
  const ASN1_BIT_STRING* signature = nullptr;
  X509_get0_signature(&signature, nullptr, certificate);
  const unsigned char* bytes = ASN1_STRING_get0_data(signature);
  const std::unique_ptr<ECDSA_SIG, decltype(&ECDSA_SIG_free)> numbers(
      d2i_ECDSA_SIG(nullptr, &bytes, ASN1_STRING_length(signature)), &ECDSA_SIG_free);
  Require(numbers != nullptr);
  return BN_num_bytes(ECDSA_SIG_get0_r(numbers.get())) == 32 &&
         BN_num_bytes(ECDSA_SIG_get0_s(numbers.get())) == 32;
}

// Each signature is another one. Wine 8 takes none with a number that is shorter than the key, as
// one in 128 is.
void Sign(const Certificate& subject, const Certificate& issuer) {
  do {
    Require(X509_sign(subject.Public.get(), issuer.Key.get(), EVP_sha256()) != 0);
  } while (!HasFullNumbers(subject.Public.get()));
}

}  // namespace

ThrowawayAuthority::ThrowawayAuthority(const std::string& name) : own_(Begin(name, {})) {
  X509* const own = own_.Public.get();
  Require(X509_set_issuer_name(own, X509_get_subject_name(own)) == 1);
  AddExtension(own, own, NID_basic_constraints, "critical,CA:TRUE");
  AddExtension(own, own, NID_key_usage, "critical,keyCertSign");
  AddExtension(own, own, NID_subject_key_identifier, "hash");
  Sign(own_, own_);
}

std::string ThrowawayAuthority::Pem() const {
  const std::shared_ptr<BIO> text(BIO_new(BIO_s_mem()), BIO_free);
  Require(text && PEM_write_bio_X509(text.get(), own_.Public.get()) == 1);
  char* begin = nullptr;
  const long size = BIO_get_mem_data(text.get(), &begin);
  return {begin, static_cast<std::size_t>(size)};
}

Certificate ThrowawayAuthority::Issue(const CertificateWish& wish) const {
  Certificate made = Begin("Quillbox demo service", wish);
  X509* const certificate = made.Public.get();
  X509* const issuer = own_.Public.get();
  Require(X509_set_issuer_name(certificate, X509_get_subject_name(issuer)) == 1);
  AddExtension(certificate, issuer, NID_basic_constraints, "critical,CA:FALSE");
  AddExtension(certificate, issuer, NID_subject_key_identifier, "hash");
  AddExtension(certificate, issuer, NID_ext_key_usage, wish.Use);
  if (!wish.Names.empty()) AddExtension(certificate, issuer, NID_subject_alt_name, wish.Names);
  AddExtension(certificate, issuer, NID_authority_key_identifier, "keyid");
  Sign(made, own_);
  return made;
}

}  // namespace quillbox
