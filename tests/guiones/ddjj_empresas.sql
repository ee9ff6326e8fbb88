INSERT INTO Empresas (CUIT, Razon) VALUES ('30-12345678-1', 'D''Angelo Hermanos'), ('30-87654321-5', 'Ñandú Sur');
