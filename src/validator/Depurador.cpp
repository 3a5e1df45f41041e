#include "validator/Depurador.h"

#include "common/modDepuracao.h"
#include "layout/ArquivoRemessaBD.h"
#include "run/NomesDeArquivo.h"
#include "validator/ParadaEstrutural.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>
#include <utility>

namespace quilatador {

namespace {

constexpr double bytesPorRegistro = 241;
constexpr VistaTexto separador = "==================================================================";

constexpr VistaTexto semLeiaute = "Leiaute não carregado!"_t;

/// Records of a file by its length, to the nearest (halves to even), as many as can be counted at the most.
std::int32_t registrosEstimados(std::uint64_t bytes) {
    constexpr double maximo = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::min(std::nearbyint(static_cast<double>(bytes) / bytesPorRegistro), maximo));
}

} // namespace

Depurador::Depurador(Ambiente& ambiente, modVariaveis& globais) : ambiente_(ambiente), globais_(globais) {
    try {
        carregarLeiaute();
    } catch (const FalhaMostrada&) {
        return;
    } catch (const Falha& falha) {
        ambiente_.painel.mensagem(
            {.texto = falha.descricao(), .titulo = Texto(tituloDeErro), .icone = Mensagem::Icone::Exclamacao});
    } catch (const std::bad_alloc&) {
        arquivoRemessa_.reset();
        camposDeTodaLinha_.clear();
        avisarFaltaDeMemoria(ambiente_.painel, tituloDeErro);
    }
}

void Depurador::carregarLeiaute() {
    arquivoRemessa_ = ArquivoRemessaBD::obterArquivoRemessa(ambiente_.leiaute(), ambiente_.arquivos, ambiente_.painel);
    if (!arquivoRemessa_) return;
    for (const auto& tipo : arquivoRemessa_->tiposRegistros()) {
        const auto campo = [&](VistaTexto nome) {
            const auto indice = tipo->indiceDoCampo(nome);
            return indice ? tipo->campos()[*indice].get() : nullptr;
        };
        const CampoRemessa* tipoReg = campo("TipoReg");
        std::optional<Texto> letra;
        if (tipoReg && iguaisSemCaixa(tipo->identificador(), "TipoReg") && tipoReg->natureza() == "S")
            letra = tipoReg->interpretar(tipoReg->Valor().texto(), 0).texto();
        camposDeTodaLinha_.push_back({letra, tipoReg, campo("Sequencial"), campo("Convenio"), campo("IDRegistro")});
    }
}

void Depurador::adicionarRelator(Relator& relator) {
    ouvintes_.push_back(&relator);
}

Resumo Depurador::DepurarArquivo(const std::filesystem::path& nomeArquivo, std::optional<std::filesystem::path> log) {
    Resumo resultado = resumo(Desfecho::NaoRodou);
    try {
        prepararExecucao(nomeArquivo, std::move(log));
        execucao_.log = criarLog(ambiente_, nomeArquivo, execucao_.nomeArquivoLog, tituloDeErro);
        resultado = resumo(Desfecho::NaoRodou);
        if (execucao_.log) {
            resultado = rodar();
            encerrar();
            VisualizarArquivo(execucao_.nomeArquivoLog);
        }
    } catch (const FalhaDoLog& falha) {
        resultado = resumo(Desfecho::NaoRodou);
        resultado.descricao = falha.descricao();
        if (arquivoRemessa_) arquivoRemessa_->fecharArquivoEntrada();
        avisarFalhaDoLog(ambiente_.painel, execucao_.nomeArquivoLog, falha, tituloDeErro);
    } catch (const std::bad_alloc&) {
        resultado = resumo(Desfecho::NaoRodou);
        resultado.descricao = memoriaInsuficiente;
        if (arquivoRemessa_) arquivoRemessa_->fecharArquivoEntrada();
        avisarFaltaDeMemoria(ambiente_.painel, tituloDeErro);
    }
    execucao_.log.reset();
    for (Relator* ouvinte : ouvintes_)
        ouvinte->resumo(resultado);
    return resultado;
}

void Depurador::prepararExecucao(const std::filesystem::path& nomeArquivo, std::optional<std::filesystem::path> log) {
    execucao_ = Execucao();
    Cancelado = false;
    if (PosicaoDataBarra == 0) FormatoDataBarra.clear();
    execucao_.nomeArquivo = nomeArquivo;
    execucao_.nomeArquivoLog = log ? *std::move(log) : caminhoDoLog(nomeArquivo, "log");
    execucao_.hoje = ambiente_.relogio.hoje();
    if (arquivoRemessa_) arquivoRemessa_->anoCorrente(anoDe(execucao_.hoje));
}

Resumo Depurador::rodar() {
    escreverLog(tituloDoLog(execucao_.nomeArquivo, formatarData(execucao_.hoje, "DD/MM/YYYY")));
    escreverLog("");
    if (!arquivoRemessa_) return naoCompletar(Desfecho::NaoRodou, semLeiaute);
    try {
        return verificarArquivo();
    } catch (const ParadaEstrutural& parada) {
        if (entradaAlterada()) return naoCompletar(Desfecho::NaoRodou, arquivoAlterado);
        publicar(parada.achado());
        Resumo resultado = resumo(Desfecho::Falhou);
        resultado.descricao = parada.descricao();
        return resultado;
    } catch (const FalhaDoLog&) {
        throw;
    } catch (const Falha& falha) {
        if (entradaAlterada()) return naoCompletar(Desfecho::NaoRodou, arquivoAlterado);
        return naoCompletar(falha.doAmbiente() ? Desfecho::NaoRodou : Desfecho::Falhou, falha.descricao());
    } catch (const std::bad_alloc&) {
        return naoCompletar(Desfecho::NaoRodou, memoriaInsuficiente); // what the run had is free again
    }
}

Resumo Depurador::verificarArquivo() {
    execucao_.totalRegistrosEstimado = registrosEstimados(ambiente_.arquivos.tamanho(execucao_.nomeArquivo));
    criarRegistrosDaGuia();
    abrirEntrada();
    verificarSequencia();
    if (Cancelado) return cancelar();
    abrirEntrada();
    if (entradaAlterada()) return naoCompletar(Desfecho::NaoRodou, arquivoAlterado);
    const Desfecho desfecho = verificarConteudo();
    if (desfecho == Desfecho::Cancelada) return cancelar();
    if (entradaAlterada()) return naoCompletar(Desfecho::NaoRodou, arquivoAlterado);
    escreverResumo();
    return resumo(desfecho);
}

Resumo Depurador::cancelar() {
    escreverLog("");
    escreverLog("DEPURACAO CANCELADA!");
    return resumo(Desfecho::Cancelada);
}

Resumo Depurador::naoCompletar(Desfecho desfecho, VistaTexto descricao) {
    escreverLog(descricao);
    Resumo resultado = resumo(desfecho);
    resultado.descricao = descricao;
    return resultado;
}

Resumo Depurador::resumo(Desfecho desfecho) const {
    return {.desfecho = desfecho,
            .totalErros = execucao_.totalErros,
            .totalRegistros = execucao_.totalRegistros,
            .guiasDepuradas = execucao_.guias,
            .guiasAceitas = execucao_.guiasAceitas,
            .guiasRejeitadas = execucao_.guiasRejeitadas,
            .descricao = {}};
}

void Depurador::encerrar() {
    ambiente_.painel.concluirProgresso(progresso());
    escreverLog("Depuração terminada!"_t);
    if (arquivoRemessa_) arquivoRemessa_->fecharArquivoEntrada();
    execucao_.log->fechar();
}

void Depurador::abrirEntrada() {
    arquivoRemessa_->contador(0);
    arquivoRemessa_->criarCopias(false);
    arquivoRemessa_->abrirArquivoEntrada(execucao_.nomeArquivo, [this] {
        ambiente_.painel.processarEventos();
        return Cancelado.load();
    });
    if (!execucao_.versao) execucao_.versao = arquivoRemessa_->versaoDaEntrada();
}

bool Depurador::entradaAlterada() const noexcept {
    const auto agora = arquivoRemessa_->versaoDaEntrada();
    return agora && agora != execucao_.versao;
}

void Depurador::criarRegistrosDaGuia() {
    execucao_.registroS = registroVazio("S");
    execucao_.registroT = registroVazio("T");
    execucao_.registroU = registroVazio("U");
    execucao_.registroV = registroVazio("V");
    execucao_.registroW = registroVazio("W");
    for (RegistroRemessa& mensagem : execucao_.mensagensX)
        mensagem = registroVazio("X");
}

/// A record of the run's own: never the record type itself, whose line the reader changes.
RegistroRemessa Depurador::registroVazio(VistaTexto nome) {
    RegistroRemessa registro = arquivoRemessa_->criarRegistro(nome)->copia();
    registro.linha("");
    return registro;
}

Desfecho Depurador::verificarConteudo() {
    if (execucao_.totalRegistros == 0) execucao_.totalRegistros = execucao_.totalRegistrosEstimado;
    escreverLog("");
    escreverLog("VERIFICAÇÃO DE CONTEÚDO"_t);
    escreverLog("");
    execucao_.linhaAtual = 1;
    iniciarFase("Verificando registros de definição!"_t, execucao_.totalRegistros);
    const RegistroRemessa& header = arquivoRemessa_->lerRegistro(false);
    execucao_.registroA = header.copia();
    verificarSegmentoA();
    verificarCaracteres(header);
    for (;;) {
        const RegistroRemessa& registro = arquivoRemessa_->lerRegistro(false);
        if (registro.linha().empty()) return Desfecho::Concluida;
        ++execucao_.linhaAtual;
        if (Cancelado) return Desfecho::Cancelada;
        verificarCaracteres(registro);
        ambiente_.painel.avancar(progresso());
        const Texto& tipo = tipoDaLinha(registro);
        if (tipo.size() == 1 && !verificarRegistro(registro, tipo.front())) return Desfecho::Concluida;
    }
}

void Depurador::escreverResumo() {
    const auto linha = [&](VistaTexto rotulo, std::int32_t numero) {
        escreverLog(junta(rotulo, std::to_string(numero)));
    };
    escreverLog("");
    escreverLog(separador);
    escreverLog("");
    linha("Erros encontrados: ", execucao_.totalErros);
    escreverLog("");
    linha("Guias depuradas  : ", execucao_.guiasRejeitadas + execucao_.guiasAceitas);
    linha("Guias aceitas    : ", execucao_.guiasAceitas);
    linha("Guias rejeitadas : ", execucao_.guiasRejeitadas);
    escreverLog("");
    escreverLog(separador);
    escreverLog(junta("Tempo Decorrido  : ", formatarTempo(ambiente_.relogio.agora() - execucao_.inicio)));
}

void Depurador::verificarCaracteres(const RegistroRemessa& registro) {
    const Texto especiais = modDepuracao::caracteresEspeciais(registro.linha());
    if (especiais.empty()) return;
    escreverErro("linha.caracteresEspeciais", junta("Caracteres especiais não permitidos! "_t, especiais));
}

/// What the content pass does with one line. False where the rest of the file is not to be read.
bool Depurador::verificarRegistro(const RegistroRemessa& registro, char letra) {
    const auto guardar = [&](RegistroRemessa& destino) -> const RegistroRemessa& { return destino = registro.copia(); };
    switch (letra) {
    case 'B':
        guardar(execucao_.registroB);
        verificarSegmentoB();
        break;
    case 'C':
        guardar(execucao_.registroC);
        verificarSegmentoC();
        break;
    case 'D':
        guardar(execucao_.registroD);
        verificarSegmentoD();
        break;
    case 'E':
        guardar(execucao_.registroE);
        verificarSegmentoE();
        break;
    case 'F':
        guardar(execucao_.registroF);
        verificarSegmentoF();
        break;
    case 'G':
        verificarSegmentoG(registro);
        break;
    case 'K':
        verificarSegmentoK(registro);
        break;
    case 'L':
        verificarSegmentoL(registro);
        ++execucao_.parcelasPrevistas;
        break;
    case 'S':
        return iniciarGuia(registro);
    case 'T':
        registro.copiar(execucao_.registroT);
        break;
    case 'U':
        registro.copiar(execucao_.registroU);
        break;
    case 'V':
        registro.copiar(execucao_.registroV);
        break;
    case 'W':
        registro.copiar(execucao_.registroW);
        break;
    case 'X':
        guardarMensagem(registro);
        break;
    case 'Y':
        guardarParcela(registro);
        break;
    case 'Z':
        encerrarGuias();
        break;
    default:
        break; // H, I and J have no content checks; letters out of place were found by the sequence pass
    }
    return true;
}

bool Depurador::iniciarGuia(const RegistroRemessa& registro) {
    ambiente_.painel.rotulo(Rotulo::Operacao, "Depurando guias");
    const std::optional<double> primeiras = ambiente_.painel.primeirasGuias();
    if (primeiras && *primeiras <= execucao_.guias) return false;
    registro.copiar(execucao_.registroS);
    for (RegistroRemessa* outro :
         {&execucao_.registroT, &execucao_.registroU, &execucao_.registroV, &execucao_.registroW})
        outro->linha("");
    for (RegistroRemessa& mensagem : execucao_.mensagensX)
        mensagem.linha("");
    execucao_.contagemX = 0;
    execucao_.contagemY = 0;
    ++execucao_.guias;
    return true;
}

void Depurador::guardarMensagem(const RegistroRemessa& registro) {
    if (++execucao_.contagemX <= execucao_.mensagensX.size()) {
        registro.copiar(execucao_.mensagensX[execucao_.contagemX - 1]);
    } else {
        escreverErro("x.quantidade.excedida",
                     "Somente podem ser informadas 4 linhas de mensagem (segmento X) por recebimento!");
    }
}

void Depurador::guardarParcela(const RegistroRemessa& registro) {
    if (++execucao_.contagemY > execucao_.parcelasPrevistas) {
        escreverErro("y.quantidade.excedida", "Foram informadas mais parcelas do que o previsto no segmento 'E'!");
        return;
    }
    if (execucao_.parcelasY.size() < execucao_.contagemY) execucao_.parcelasY.push_back(registroVazio("Y"));
    registro.copiar(execucao_.parcelasY[execucao_.contagemY - 1]);
}

/// Only here is a slip checked, so that a file has at most one that is accepted or rejected, however many it holds.
/// Kept on purpose, the test `soAUltimaGuiaEhVerificada` holds it.
void Depurador::encerrarGuias() {
    if (execucao_.registroS.linha().empty()) return;
    ++(VerificarGuia() ? execucao_.guiasAceitas : execucao_.guiasRejeitadas);
}

Progresso Depurador::progresso() const {
    return {.registroAtual = execucao_.linhaAtual,
            .totalRegistros =
                execucao_.totalRegistros == 0 ? execucao_.totalRegistrosEstimado : execucao_.totalRegistros,
            .guias = execucao_.guias,
            .inicio = execucao_.inicio};
}

void Depurador::iniciarFase(VistaTexto operacao, std::int32_t total) {
    execucao_.inicio = ambiente_.relogio.agora();
    ambiente_.painel.rotulo(Rotulo::Operacao, operacao);
    ambiente_.painel.iniciarProgresso({.totalRegistros = total, .inicio = execucao_.inicio});
}

void Depurador::escreverLog(VistaTexto texto) {
    execucao_.log->linha(texto);
    for (Relator* ouvinte : ouvintes_)
        ouvinte->linha(texto);
}

void Depurador::publicar(const Achado& achado) {
    execucao_.log->achado(achado);
    for (Relator* ouvinte : ouvintes_)
        ouvinte->achado(achado);
}

void Depurador::escreverErro(const Achado& achado) {
    publicar(achado);
    ++execucao_.totalErros;
}

void Depurador::escreverErro(VistaTexto id, VistaTexto mensagem, std::optional<std::int32_t> linha) {
    const Texto& tipo = tipoDaLinha(arquivoRemessa_->registroEmMaos());
    escreverErro(Achado{.id = id,
                        .gravidade = Gravidade::Erro,
                        .linha = linha.value_or(execucao_.linhaAtual),
                        .segmento = tipo.empty() ? '\0' : tipo.front(),
                        .campo = std::nullopt,
                        .mensagem = Texto(mensagem)});
}

void Depurador::VisualizarArquivo(const std::filesystem::path& caminho) {
    ambiente_.lancador.abrirTexto(caminho);
}

Valor Depurador::valorDaLinha(const RegistroRemessa& registro, const CampoRemessa* campo, VistaTexto nome) const {
    return campo ? registro.getValorCampo(*campo) : registro.getValorCampo(nome);
}

const Texto& Depurador::tipoDaLinha(const RegistroRemessa& registro) {
    const CamposDeTodaLinha& campos = camposDaLinha();
    if (campos.letra) return *campos.letra;
    return tipoLido_ = valorDaLinha(registro, campos.tipoReg, "TipoReg").texto();
}

const Depurador::CamposDeTodaLinha& Depurador::camposDaLinha() const {
    return camposDeTodaLinha_[arquivoRemessa_->tipoEmMaos()];
}

} // namespace quilatador
