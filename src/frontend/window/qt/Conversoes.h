#pragma once

#include "common/Texto.h"

#include <QString>

#include <filesystem>
#include <string>

namespace quilatador {

[[nodiscard]] inline QString paraQt(VistaTexto texto) {
    return QString::fromStdString(utf8DeTexto(texto));
}

[[nodiscard]] inline QString caminhoParaQt(const std::filesystem::path& caminho) {
    const std::u8string utf8 = caminho.u8string();
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

[[nodiscard]] inline Texto textoDeQt(const QString& texto) {
    return textoDeUtf8(texto.toStdString());
}

/// A path keeps every letter, because it is never converted to Windows-1252.
[[nodiscard]] inline std::filesystem::path caminhoDeQt(const QString& caminho) {
    const QByteArray utf8 = caminho.toUtf8();
    return std::u8string(utf8.begin(), utf8.end());
}

} // namespace quilatador
