#!/usr/bin/env python3
"""Makes roster files to import, with made-up people: Windows-1252, fixed positions, CR LF.

    generar.py                                         both files of the guided tour, beside this script
    generar.py --formato brivo --empleados 20000 --salida grande.txt

The same arguments always make the same file.
"""
import argparse
import datetime
import pathlib
import random
import sys

APELLIDOS = (
    "Acosta Agüero Aguirre Álvarez Amaya Arce Argüello Báez Barrionuevo Benítez Bianchi Bustos Cáceres Calderón Cardozo "
    "Castillo Ceballos Córdoba D'Angelo Dell'Oro Díaz Domínguez Echagüe Escudero Fernández Figueroa Funes Giménez Godoy "
    "Gómez González Güiraldes Gutiérrez Heredia Ibáñez Juárez Ledesma López Luján Maldonado Martínez Méndez Molina "
    "Montenegro Morales Moyano Muñoz Nievas Núñez Ojeda Olguín O'Higgins Ordóñez Páez Páramo Peña Peralta Pereyra Quiroga "
    "Quiñones Ramírez Ríos Rodríguez Rojas Romero Rossi Ruiz Saldaño Sánchez Sosa Suárez Tello Toledo Vázquez Vera Villalba "
    "Yáñez Zalazar Zárate Zúñiga"
).split()
VARONES = (
    "Adrián Agustín Alberto Ángel Antonio Carlos Claudio Daniel Darío Diego Emilio Esteban Fabián Federico Félix Gabriel "
    "Germán Gonzalo Héctor Hernán Hugo Íñigo Iván Javier Joaquín Jorge José Juan Julián Leandro Lucas Luis Marcelo Martín "
    "Mateo Miguel Nicolás Óscar Pablo Raúl Ricardo Roberto Rodrigo Rubén Sebastián Sergio Tomás Víctor"
).split()
MUJERES = (
    "Alejandra Ana Andrea Ángela Beatriz Begoña Camila Carolina Cecilia Claudia Cristina Daniela Elena Elsa Estela Eugenia "
    "Florencia Gabriela Graciela Inés Irene Isabel Jimena Julia Laura Lucía Luisa Marcela María Mariana Marta Mercedes "
    "Milagros Mónica Natalia Noemí Norma Patricia Paula Raquel Rocío Rosa Silvia Sofía Susana Teresa Úrsula Verónica"
).split()
# The first people of a file, so that every file has what is awkward in a name.
OBLIGADOS = [("D'Angelo", False), ("Núñez", True), ("Agüero", False), ("O'Higgins", True), ("Güiraldes", False)]
CALLES = (
    "San Martín|Belgrano|Rivadavia|9 de Julio|25 de Mayo|Sarmiento|Av. España|Las Heras|Güemes|Pueyrredón|Mitre|Alem|"
    "Ruta Provincial 50|Callejón Peña|O'Brien|Chacabuco|Maipú|Los Olivos|Carril Nacional|Tucumán"
).split("|")
# Town, postal code, province
LOCALIDADES = [
    ("San Rafael", "5600", 7), ("Maipú", "5515", 7), ("Luján de Cuyo", "5507", 7), ("Godoy Cruz", "5501", 7),
    ("Caucete", "5442", 10), ("Pocito", "5429", 10), ("Chilecito", "5360", 8), ("Cafayate", "4427", 9),
    ("Cañuelas", "1814", 1), ("Bahía Blanca", "8000", 1), ("Añatuya", "3760", 13), ("General Roca", "8332", 22),
]
CATEGORIAS = [11, 12, 13, 15, 18, 21, 22, 24, 31, 32, 41, 42, 43, 44, 52, 53, 61, 62, 71, 72]
# Ten characters, the whole width of the field. The tour's company has the first three; OLIVAR-099 exists nowhere.
SUCURSALES = ["BODEGA-001", "FINCA--002", "DEPOS.-003"]
SUCURSAL_AJENA = "OLIVAR-099"


def con_verificador(prefijo: int, documento: int) -> str | None:
    """Eleven digits of a CUIL, or nothing when the number has no check digit."""
    diez = f"{prefijo:02d}{documento:08d}"
    resto = sum(int(d) * p for d, p in zip(diez, (5, 4, 3, 2, 7, 6, 5, 4, 3, 2))) % 11
    if resto == 1:
        return None
    return diez + str((11 - resto) % 11)


class Generador:
    def __init__(self, semilla: str) -> None:
        self.azar = random.Random(semilla)
        self.documentos: set[int] = set()

    def fecha(self, desde: int, hasta: int) -> datetime.date:
        primero = datetime.date(desde, 1, 1)
        return primero + datetime.timedelta(days=self.azar.randrange((datetime.date(hasta, 12, 31) - primero).days + 1))

    def documento(self, anio: int) -> int:
        """A number that fits somebody born that year; no number comes twice."""
        while True:
            numero = 4_000_000 + (anio - 1940) * 620_000 + self.azar.randrange(900_000)
            if numero not in self.documentos:
                self.documentos.add(numero)
                return numero

    def cuil(self, mujer: bool, anio: int) -> tuple[str, int]:
        while True:
            documento = self.documento(anio)
            cuil = con_verificador(27 if mujer else 20, documento) or con_verificador(23, documento)
            if cuil:
                return cuil, documento

    def nombre(self, apellido: str, mujer: bool) -> str:
        nombres = self.azar.sample(MUJERES if mujer else VARONES, self.azar.choice((1, 2, 2)))
        return f"{apellido}, {' '.join(nombres)}"

    def persona(self, numero: int) -> dict:
        if numero < len(OBLIGADOS):
            apellido, mujer = OBLIGADOS[numero]
        else:
            apellido, mujer = self.azar.choice(APELLIDOS), self.azar.random() < 0.4
        nacio = self.fecha(1943, 1987)
        cuil, documento = self.cuil(mujer, nacio.year)
        imponible = round(self.azar.lognormvariate(7.55, 0.35) * 20) * 5 / 100 + self.azar.randrange(100) / 100
        return {
            "cuil": cuil, "documento": documento, "nombre": self.nombre(apellido, mujer), "apellido": apellido,
            "mujer": mujer, "nacio": nacio, "imponible": imponible + 400, "media_jornada": numero % 7 == 3,
            "acuerdo": self.azar.choice((0, 0, 0, 120, 150.5, 320)), "hijos": self.azar.choice((0, 0, 1, 1, 2, 3, 4)),
            "casado": self.azar.random() < 0.5,
        }

    # -- "AFIP - SIJP" ------------------------------------------------------------------------------------------------

    def linea_sijp(self, numero: int) -> list[str]:
        p = self.persona(numero)
        linea = (
            p["cuil"] + ancho(p["nombre"], 30) + ("T" if p["casado"] else "F") + f"{p['hijos']:02d}"
            + ancho("", 13) + ("001" if p["media_jornada"] else "008") + ancho("", 9)
            + importe(p["imponible"] + p["acuerdo"], 11, ".") + importe(p["imponible"], 11, ".")
        )
        assert len(linea) == 91
        return [linea]

    # -- "B.R.I.V.O." -------------------------------------------------------------------------------------------------

    def comienzo(self, cuil: str, relacion: int, nombre: str, documento: int, mujer: bool, nacio: str) -> str:
        linea = cuil + str(relacion) + ancho(nombre, 40) + "1" + f"{documento:08d}" + ("0" if mujer else "1") + nacio
        assert len(linea) == 70
        return linea

    def lineas_brivo(self, numero: int) -> list[str]:
        p = self.persona(numero)
        # Some dates are not known, told in both ways.
        nacio = {11: " " * 8, 23: "0" * 8}.get(numero % 40, dia(p["nacio"]))
        alta = self.fecha(max(p["nacio"].year + 18, 1975), 2005)
        ingreso = " " * 8 if numero % 40 == 17 else dia(alta)
        baja = self.fecha(alta.year, 2005)
        egreso = dia(baja) if numero % 19 == 5 and baja > alta else self.azar.choice((" " * 8, "0" * 8))
        localidad, postal, provincia = self.azar.choice(LOCALIDADES)
        sucursal = SUCURSAL_AJENA if numero % 20 == 9 else self.azar.choice([*SUCURSALES, ""])
        altura = "" if self.azar.random() < 0.1 else str(self.azar.randrange(1, 6000))
        piso, depto = ("", "") if self.azar.random() < 0.8 else (str(self.azar.randrange(1, 12)), self.azar.choice("ABCD"))
        linea = (
            self.comienzo(p["cuil"], 0, p["nombre"], p["documento"], p["mujer"], nacio)
            + ancho(self.azar.choice(CALLES), 40) + altura.rjust(5) + ancho(piso, 3) + ancho(depto, 3)
            + ancho(postal, 8) + ancho(localidad, 30) + ("  " if numero % 40 == 29 else f"{provincia:02d}")
            + ancho(f"({self.azar.randrange(260, 300):04d}) 4{self.azar.randrange(10, 100)}-{self.azar.randrange(10000):04d}", 20)
            + ("2" if p["casado"] else self.azar.choice("1346")) + ("N" if numero % 6 == 4 else "S")
            + importe(p["imponible"] + p["acuerdo"], 9) + importe(p["imponible"], 9)
            + f"{self.azar.choice(CATEGORIAS):02d}" + ingreso + egreso + ancho(sucursal, 10)
            + ("4" if p["media_jornada"] else "8") + importe(p["acuerdo"], 9) + importe(75.25 if numero % 10 == 1 else 0, 9)
        )
        assert len(linea) == 248
        return [linea, *self.familia(p)]

    def familia(self, p: dict) -> list[str]:
        lineas = []
        if p["casado"]:
            nacio = self.fecha(p["nacio"].year - 4, p["nacio"].year + 6)
            lineas.append((1, self.azar.choice(APELLIDOS), not p["mujer"], nacio))
        for _ in range(p["hijos"]):
            mujer = self.azar.random() < 0.5
            nacio = self.fecha(min(p["nacio"].year + 20, 2004), min(p["nacio"].year + 42, 2005))
            lineas.append((3 if mujer else 2, p["apellido"], mujer, nacio))
        return [
            self.comienzo(p["cuil"], relacion, self.nombre(apellido, mujer), self.documento(nacio.year), mujer, dia(nacio))
            for relacion, apellido, mujer, nacio in lineas
        ]


def ancho(texto: str, largo: int) -> str:
    return texto[:largo].ljust(largo)


def dia(fecha: datetime.date) -> str:
    return fecha.strftime("%d%m%Y")


def importe(valor: float, largo: int, coma: str = ",") -> str:
    """Right-aligned; point and comma are both the decimal mark of a file."""
    texto = f"{valor:.2f}".replace(".", coma).rjust(largo)
    assert len(texto) == largo
    return texto


def escribir(formato: str, empleados: int, semilla: int, salida: pathlib.Path) -> None:
    generador = Generador(f"{formato} {semilla}")
    lineas_de = generador.linea_sijp if formato == "sijp" else generador.lineas_brivo
    with salida.open("w", encoding="cp1252", newline="\r\n") as archivo:
        for numero in range(empleados):
            archivo.writelines(linea + "\n" for linea in lineas_de(numero))


def main() -> int:
    opciones = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    opciones.add_argument("--formato", choices=("sijp", "brivo", "ambos"), default="ambos")
    opciones.add_argument("--empleados", type=int, default=48, metavar="N", help="employees of each file (default: 48)")
    opciones.add_argument("--semilla", type=int, default=1, metavar="N", help="another number makes other people")
    opciones.add_argument("--salida", type=pathlib.Path, help="file; for both formats, folder (default: this script's)")
    elegido = opciones.parse_args()
    if not 0 <= elegido.empleados <= 500_000:
        opciones.error("--empleados: 0 to 500000")
    carpeta = pathlib.Path(__file__).parent
    for formato in ("sijp", "brivo") if elegido.formato == "ambos" else (elegido.formato,):
        nombre = f"nomina_{formato}.txt"
        if elegido.salida is None:
            salida = carpeta / nombre
        else:
            salida = elegido.salida / nombre if elegido.formato == "ambos" else elegido.salida
        escribir(formato, elegido.empleados, elegido.semilla, salida)
    return 0


if __name__ == "__main__":
    sys.exit(main())
