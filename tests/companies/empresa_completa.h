#pragma once

#include "companies/guardar_empresa.h"

// Made-up companies with right check digits.
inline const QString cuitUno = "30-12345678-1";
inline const QString cuitDos = "30-50001091-2";

/// A company with a text of its own in every field, an apostrophe in several.
inline Empresa completa(const QString& cuit = cuitUno, const QString& razon = "Panadería D'Angelo")
{
    return {.cuit = cuit,
            .razon = razon,
            .fantasia = "L'Horno",
            .calle = "O'Higgins",
            .numero = "1234",
            .nroLocal = "L-5",
            .piso = "3",
            .depto = "B",
            .codPos = "B1900",
            .localidad = "Berisso",
            .provincia = 1,
            .nombreProvincia = "Buenos Aires",
            .telefono = "461-0000",
            .fax = "461-0001",
            .rubro = "522120",
            .contacto = "Ñandú D'Elía",
            .web = "www.example.org",
            .email = "a@example.org",
            .estudio = "Estudio O'Connor",
            .estDomicilio = "Calle 7",
            .estCodPos = "1900",
            .estLocalidad = "La Plata",
            .estTelefono = "422-0000",
            .estEmail = "e@example.org"};
}
