# jugar.py GUION TRABAJO INSTALACION BASE ROBOT...: plays one acceptance script in a fresh copy of the installation.
# The script's comment lines of these forms say what it needs, each as often as it takes:
#   # base: ARCHIVO      this file in the place of the database; it must come out as it is
#   # antes: GUION       its lines are played first; line numbers count from its first one
#   # sql: ARCHIVO       statements run on the database first
#   # datos: CARPETA     its files are copied into the program's folder
#   # borrar: ARCHIVO    not there when the program starts
#   # ftp: COMO          with an FTP server of its own, as con_ftp.py tells: si, cerrado ...
#   # salida: N          exit status of the robot, 0 unless told
#   # despues: GUION     another start of the program in the same folder
# Paths are relative to the script. Files in X.esperado/ beside X.guion must have come out equal, byte by byte; there
# Y.pdf.txt is what Y.pdf says, its blanks run together.
# The variable ROBOT_OPCIONES of the environment adds an option to the robot's own, "--pantalla" for one.
import os
import pathlib
import re
import shutil
import subprocess
import sys

GUION, TRABAJO, INSTALACION, BASE = map(pathlib.Path, sys.argv[1:5])
PROGRAMA = TRABAJO / "programa"
AQUI = GUION.parent


def cabecera(guion: pathlib.Path, clave: str) -> list:
    return re.findall(rf"^# *{clave}: *(.*\S) *$", guion.read_text("utf-8"), re.MULTILINE)


def jugar(guion: pathlib.Path):
    sentencias = [opcion for sql in cabecera(guion, "sql") for opcion in ("--sql", guion.parent / sql)]
    servidor = [opcion for como in cabecera(guion, "ftp")
                for opcion in (sys.executable, pathlib.Path(__file__).with_name("con_ftp.py"), como, TRABAJO / "ftp")]
    print("---", guion, flush=True)
    partes = [guion.parent / parte for parte in cabecera(guion, "antes")] + [guion]
    (TRABAJO / guion.name).write_text("".join(parte.read_text("utf-8") for parte in partes), "utf-8")
    estado = subprocess.run([*servidor, *sys.argv[5:], TRABAJO / guion.name, "--en", PROGRAMA, "--foto", TRABAJO / "falla.png",
                             *os.environ.get("ROBOT_OPCIONES", "").split(), *sentencias], check=False).returncode
    if str(estado) not in (cabecera(guion, "salida") or ["0"]):
        sys.exit(f"{guion}: exit status {estado} (picture: {TRABAJO}/falla.png)")
    for siguiente in cabecera(guion, "despues"):
        jugar(guion.parent / siguiente)


def escribir_texto(pdf: pathlib.Path):
    texto = subprocess.run(["pdftotext", "-layout", pdf, "-"], capture_output=True, check=True).stdout.decode("utf-8")
    lineas = [" ".join(linea.split()) for linea in texto.splitlines()]
    pdf.with_name(pdf.name + ".txt").write_text("".join(f"{linea}\n" for linea in lineas if linea), "utf-8")


def iguales(esperado: pathlib.Path, producido: pathlib.Path):
    if esperado.read_bytes() != producido.read_bytes():
        sys.exit(f"{producido} is not {esperado}")


shutil.rmtree(TRABAJO, ignore_errors=True)
shutil.copytree(INSTALACION, PROGRAMA, ignore=shutil.ignore_patterns(  # what a start there has left, too
    "Altoverde", "Altoverde.exe", "Copias", "*.ldb", "*.mdb"))
for base in cabecera(GUION, "base") or [BASE]:
    shutil.copyfile(AQUI / base, PROGRAMA / "DBBrivo.mdb")
for datos in cabecera(GUION, "datos"):
    shutil.copytree(AQUI / datos, PROGRAMA, dirs_exist_ok=True)
for sobra in cabecera(GUION, "borrar"):
    (PROGRAMA / sobra).unlink()
jugar(GUION)
for pdf in PROGRAMA.glob("*.pdf"):
    escribir_texto(pdf)
for base in cabecera(GUION, "base"):
    iguales(AQUI / base, PROGRAMA / "DBBrivo.mdb")
esperados = GUION.with_suffix(".esperado")
for archivo in filter(pathlib.Path.is_file, esperados.rglob("*")):
    iguales(archivo, PROGRAMA / archivo.relative_to(esperados))
