DROP TABLE Parametros
