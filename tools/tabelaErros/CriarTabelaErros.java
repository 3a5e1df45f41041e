import com.healthmarketscience.jackcess.ColumnBuilder;
import com.healthmarketscience.jackcess.CursorBuilder;
import com.healthmarketscience.jackcess.DataType;
import com.healthmarketscience.jackcess.Database;
import com.healthmarketscience.jackcess.DatabaseBuilder;
import com.healthmarketscience.jackcess.Row;
import com.healthmarketscience.jackcess.Table;
import com.healthmarketscience.jackcess.TableBuilder;
import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.time.LocalDateTime;

/**
 * Writes the Access database of the code tables out of its readable source. To be run whenever the source changes; both
 * files are committed, and a test holds that they have the same rows:
 *
 * <pre>
 *     java -cp jackcess.jar:commons-lang3.jar:commons-logging.jar tools/tabelaErros/CriarTabelaErros.java \
 *         data/tabelas/TabelaErrosZUL.txt data/tabelas/TabelaErrosZUL.mdb
 * </pre>
 *
 * The library is Jackcess 4, from Maven as com.healthmarketscience.jackcess:jackcess; the two that it needs are Debian's
 * libcommons-lang3-java and libcommons-logging-java (in /usr/share/java), the language Java 17. The same source gives
 * the same file, byte for byte.
 *
 * <p>The source is a text in UTF-8. The lines behind a table are its rows, one value for each column; blanks around a
 * value do not count, and an empty one is null. Types are inteiro (16 bits) and texto(n):
 *
 * <pre>
 *     # a comment
 *     senha segredo
 *     tabela Forma: codigo texto(1), descricao texto(100), ordem inteiro
 *     1 | Dinheiro | 10
 *     2 |          | 20
 * </pre>
 */
final class CriarTabelaErros {
    private static final LocalDateTime CRIACAO = LocalDateTime.of(2023, 3, 15, 0, 0);
    private static final int LUGAR_DA_SENHA = 0x42;
    private static final int MAIOR_SENHA = 20;

    private final Database banco;
    private String senha = "";
    private Table tabela;

    private CriarTabelaErros(Database banco) {
        this.banco = banco;
    }

    public static void main(String[] argumentos) throws IOException {
        if (argumentos.length != 2) {
            System.err.println("Uso: CriarTabelaErros FONTE DESTINO");
            System.exit(1);
        }
        Path destino = Path.of(argumentos[1]);
        CriarTabelaErros criacao;
        Database.FileFormat access2000 = Database.FileFormat.V2000;
        try (Database banco = DatabaseBuilder.newDatabase(destino).setFileFormat(access2000).create()) {
            criacao = new CriarTabelaErros(banco);
            criacao.lerFonte(Path.of(argumentos[0]));
            criacao.fixarDatas();
        }
        gravarSenha(destino, criacao.senha);
    }

    private void lerFonte(Path fonte) throws IOException {
        int numero = 0;
        for (String linha : Files.readAllLines(fonte, StandardCharsets.UTF_8)) {
            ++numero;
            String conteudo = linha.strip();
            if (conteudo.isEmpty() || conteudo.startsWith("#")) continue;
            try {
                lerLinha(conteudo);
            } catch (IOException | RuntimeException falha) {
                throw new IOException(fonte + ", linha " + numero + ": " + falha.getMessage(), falha);
            }
        }
    }

    private void lerLinha(String conteudo) throws IOException {
        if (conteudo.startsWith("senha ")) {
            senha = conteudo.substring("senha ".length()).strip();
        } else if (conteudo.startsWith("tabela ")) {
            criarTabela(conteudo.substring("tabela ".length()).split(":", 2));
        } else {
            tabela.addRow(lerValores(conteudo.split("\\|", -1)));
        }
    }

    private void criarTabela(String[] nomeEColunas) throws IOException {
        TableBuilder nova = new TableBuilder(nomeEColunas[0].strip());
        for (String coluna : nomeEColunas[1].split(",")) {
            String[] partes = coluna.strip().split("[ ()]+");
            boolean deTextos = partes[1].equals("texto");
            if (!deTextos && !partes[1].equals("inteiro")) throw new IOException("tipo inválido: " + partes[1]);
            ColumnBuilder criada = new ColumnBuilder(partes[0], deTextos ? DataType.TEXT : DataType.INT);
            if (deTextos) criada.setLengthInUnits(Integer.parseInt(partes[2])).setCompressedUnicode(true);
            nova.addColumn(criada);
        }
        tabela = nova.toTable(banco);
    }

    private Object[] lerValores(String[] textos) throws IOException {
        if (textos.length != tabela.getColumnCount()) throw new IOException("valores: " + textos.length);
        Object[] valores = new Object[textos.length];
        for (int i = 0; i < textos.length; ++i) {
            String texto = textos[i].strip();
            boolean deTextos = tabela.getColumns().get(i).getType() == DataType.TEXT;
            if (!texto.isEmpty()) valores[i] = deTextos ? texto : (Object) Short.valueOf(texto);
        }
        return valores;
    }

    /** Without the time of its making the file is the same each time. */
    private void fixarDatas() throws IOException {
        Table catalogo = banco.getSystemTable("MSysObjects");
        for (Row objeto : CursorBuilder.createCursor(catalogo)) {
            objeto.put("DateCreate", CRIACAO);
            objeto.put("DateUpdate", CRIACAO);
            catalogo.updateRow(objeto);
        }
    }

    /**
     * The library sets no password. The header has it ciphered by "exclusive or" alone, and no password is zeros: so
     * the password is laid over what stands there.
     */
    private static void gravarSenha(Path banco, String senha) throws IOException {
        if (senha.length() > MAIOR_SENHA) throw new IOException("senha longa demais");
        byte[] bytes = Files.readAllBytes(banco);
        byte[] letras = senha.getBytes(StandardCharsets.UTF_16LE);
        for (int i = 0; i < letras.length; ++i) bytes[LUGAR_DA_SENHA + i] ^= letras[i];
        Files.write(banco, bytes);
    }
}
