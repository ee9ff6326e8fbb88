INSERT INTO Empresas (CUIT, Razon) VALUES ('30-12345678-1', 'D''Angelo Hermanos');
