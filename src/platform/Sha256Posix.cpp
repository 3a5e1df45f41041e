#include "platform/Sha256.h"

#include "platform/Hexadecimal.h"

#include <array>
#include <openssl/crypto.h>
#include <openssl/evp.h>

namespace quilatador {

namespace {

void exigir(int feito) {
    if (feito != 1) throw falhaDaSoma();
}

} // namespace

struct Sha256::Estado {
    EVP_MD_CTX* soma = EVP_MD_CTX_new();

    Estado() = default;
    Estado(const Estado&) = delete;
    Estado& operator=(const Estado&) = delete;
    ~Estado() { EVP_MD_CTX_free(soma); }
};

/// What the machine's settings make of the library costs memory, and changes no sum.
Sha256::Sha256() {
    exigir(OPENSSL_init_crypto(OPENSSL_INIT_NO_LOAD_CONFIG, nullptr));
    estado_ = std::make_unique<Estado>();
    exigir(EVP_DigestInit_ex(estado_->soma, EVP_sha256(), nullptr));
}

Sha256::~Sha256() = default;

void Sha256::juntar(std::span<const char> bytes) {
    exigir(EVP_DigestUpdate(estado_->soma, bytes.data(), bytes.size()));
}

std::string Sha256::terminar() {
    std::array<unsigned char, bytesDaSoma> soma{};
    exigir(EVP_DigestFinal_ex(estado_->soma, soma.data(), nullptr));
    return emHexadecimal(soma);
}

} // namespace quilatador
