#include "frontend/window/frmSobre.h"

namespace quilatador {

frmSobre::frmSobre(const Arquivos& arquivos, const Localidade& localidade, std::filesystem::path pastaDoPrograma,
                   std::filesystem::path programa)
    : arquivos_(arquivos)
    , localidade_(localidade)
    , pastaDoPrograma_(std::move(pastaDoPrograma))
    , programa_(std::move(programa)) {}

Texto frmSobre::versao() const {
    const auto doisDigitos = [](int numero) {
        Texto texto = textoDe(numero);
        return Zeros(texto, 2);
    };
    Texto linha = junta("Versão "_t, textoDe(QUILATADOR_VERSAO_MAIOR), "."_t, doisDigitos(QUILATADOR_VERSAO_MENOR),
                        "."_t, doisDigitos(QUILATADOR_REVISAO), " - "_t);
    std::optional<Data> data = DataHoraDoArquivo(pastaDoPrograma_ / "Quilatador.exe");
    if (!data) data = DataHoraDoArquivo(programa_);
    if (data)
        linha += junta(localidade_.nomeDoMes(static_cast<unsigned>(data->month())), "/"_t, comZeros(anoDe(*data), 4));
    return linha;
}

Texto frmSobre::Zeros(Texto& texto, std::int16_t tamanho) {
    for (auto n = static_cast<std::int64_t>(semBrancos(texto).size()); n < tamanho; ++n)
        texto = junta("0"_t, semBrancos(texto));
    return texto;
}

std::optional<Data> frmSobre::DataHoraDoArquivo(const std::filesystem::path& caminho) const {
    return arquivos_.modificadoEm(caminho);
}

} // namespace quilatador
