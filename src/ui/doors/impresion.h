#pragma once

#include <functional>

class QPageLayout;

/// Which pages of a document go to the printer, from 1.
struct PedidoDeImpresion
{
    int desde = 1;
    int hasta = 1;
};

/// The print dialog over impresoraActual(), for a document of `hojas` pages. False when cancelled, and when there is no
/// printer, which is told.
[[nodiscard]] bool PedirImpresion(int hojas, PedidoDeImpresion& pedido);
void reemplazarPedirImpresion(std::function<bool(int hojas, PedidoDeImpresion& pedido)> atiende);

/// The page set-up dialog. False when cancelled.
[[nodiscard]] bool PedirPagina(QPageLayout& pagina);
void reemplazarPedirPagina(std::function<bool(QPageLayout& pagina)> atiende);
