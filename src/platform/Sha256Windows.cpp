#include "platform/Sha256.h"

#include "platform/Hexadecimal.h"

#include <array>
#include <limits>
#include <windows.h>
// Needs what windows.h declares.
#include <bcrypt.h>

namespace quilatador {

namespace {

void exigir(NTSTATUS estado) {
    if (!BCRYPT_SUCCESS(estado)) throw falhaDaSoma();
}

} // namespace

struct Sha256::Estado {
    BCRYPT_ALG_HANDLE algoritmo = nullptr;
    BCRYPT_HASH_HANDLE soma = nullptr;

    Estado() = default;
    Estado(const Estado&) = delete;
    Estado& operator=(const Estado&) = delete;
    ~Estado() {
        if (soma) BCryptDestroyHash(soma);
        if (algoritmo) BCryptCloseAlgorithmProvider(algoritmo, 0);
    }
};

Sha256::Sha256() : estado_(std::make_unique<Estado>()) {
    exigir(BCryptOpenAlgorithmProvider(&estado_->algoritmo, BCRYPT_SHA256_ALGORITHM, nullptr, 0));
    exigir(BCryptCreateHash(estado_->algoritmo, &estado_->soma, nullptr, 0, nullptr, 0, 0));
}

Sha256::~Sha256() = default;

void Sha256::juntar(std::span<const char> bytes) {
    if (bytes.size() > std::numeric_limits<ULONG>::max()) throw falhaDaSoma();
    auto* const inicio = reinterpret_cast<PUCHAR>(const_cast<char*>(bytes.data())); // it is only read
    exigir(BCryptHashData(estado_->soma, inicio, static_cast<ULONG>(bytes.size()), 0));
}

std::string Sha256::terminar() {
    std::array<unsigned char, bytesDaSoma> soma{};
    exigir(BCryptFinishHash(estado_->soma, soma.data(), static_cast<ULONG>(soma.size()), 0));
    return emHexadecimal(soma);
}

} // namespace quilatador
