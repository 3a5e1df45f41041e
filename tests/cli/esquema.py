#!/usr/bin/python3
"""What the program writes with --json is what docs/json.schema.json describes, and the schema admits no other member.
Arguments: the program, and the folder of the sources."""

import copy
import json
import pathlib
import shutil
import subprocess
import sys
import tempfile

try:
    import jsonschema
except ImportError:
    sys.exit(77)  # skipped

programa, fontes = sys.argv[1], pathlib.Path(sys.argv[2])
esquema = json.loads((fontes / "docs/json.schema.json").read_text(encoding="utf-8"))
jsonschema.Draft202012Validator.check_schema(esquema)
validador = jsonschema.Draft202012Validator(esquema)
ajuda = subprocess.run([programa, "--ajuda"], stdout=subprocess.PIPE, check=True).stdout.decode()
falhas = 0


def falhar(comando, motivo):
    global falhas
    falhas += 1
    print(*comando, ":", motivo, file=sys.stderr)


def objetos(valor):
    """The objects within a value, itself among them."""
    if isinstance(valor, dict):
        yield valor
    for parte in valor.values() if isinstance(valor, dict) else valor if isinstance(valor, list) else ():
        yield from objetos(parte)


def conferir(*argumentos):
    comando = [programa, "--json", "-q", *map(str, argumentos)]
    linhas = subprocess.run(comando, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout.decode().splitlines()
    if not linhas:
        falhar(comando, "no output")
    for linha in linhas:
        objeto = json.loads(linha)
        for erro in validador.iter_errors(objeto):
            falhar(comando, f"{erro.message[:200]} {[e.message[:200] for e in erro.context or ()]}")
        por_membros = {tuple(parte): i for i, parte in enumerate(objetos(objeto))}
        for membros, i in por_membros.items():
            outro = copy.deepcopy(objeto)
            list(objetos(outro))[i]["desconhecido"] = 1
            if validador.is_valid(outro):
                falhar(comando, f"the schema admits an unknown member beside {membros}")


with tempfile.TemporaryDirectory() as nome:
    pasta = pathlib.Path(nome)
    shutil.copytree(fontes / "samples", pasta, dirs_exist_ok=True)
    (pasta / "vazio.rem").write_bytes(b"")
    (pasta / "cortado.rem").write_bytes((pasta / "remessa-valida/remessa.rem").read_bytes()[:3000])
    remessas = sorted(pasta.glob("**/*.rem"))
    arquivos = [*remessas, *sorted(pasta.glob("**/*.ret")), pasta / "nada.rem"]
    data = ["--com-data", "--formato", "AAAAMMDD"]
    for opcoes in [[], data, ["--primeiras", 1]]:
        conferir(*opcoes, *arquivos)
        if "--completa" in ajuda:
            conferir("--completa", *opcoes, *arquivos)
    for remessa in remessas:
        if remessa.stat().st_size > 0:
            conferir("--linha", 2, remessa)
            conferir("--sugerir-data", remessa)
sys.exit(falhas > 0)
