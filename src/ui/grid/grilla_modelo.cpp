#include "ui/grid/grilla_modelo.h"

#include <algorithm>
#include <iterator>

void Grilla::Modelo::setColumnas(std::vector<ColumnaDeGrilla> columnas)
{
    beginResetModel();
    m_columnas = std::move(columnas);
    m_vistas.clear();
    for (int i = 0; i < this->columnas(); ++i)
    {
        if (columna(i).ancho != 0)
        {
            m_vistas.push_back(i);
        }
    }
    m_filas.clear();
    endResetModel();
}

int Grilla::Modelo::vista(int columna) const
{
    const auto hallada = std::find(m_vistas.begin(), m_vistas.end(), columna);
    return hallada == m_vistas.end() ? -1 : int(hallada - m_vistas.begin());
}

void Grilla::Modelo::setOpciones(int columna, const QStringList& opciones)
{
    m_columnas[std::size_t(columna)].opciones = opciones;
}

Grilla::Modelo::Fila Grilla::Modelo::filaVacia() const
{
    Fila fila;
    fila.celdas.resize(m_columnas.size());
    fila.color = Grilla::blanco.rgb();
    fila.pintada = m_pintada;
    return fila;
}

void Grilla::Modelo::setFilas(int filas)
{
    const int antes = rowCount();
    if (filas > antes)
    {
        beginInsertRows({}, antes, filas - 1);
        m_filas.resize(std::size_t(filas), filaVacia());
        endInsertRows();
    }
    else if (filas == 0 && antes > 0)
    {
        beginResetModel(); // far cheaper than telling 20,000 rows one by one
        m_filas.clear();
        endResetModel();
    }
    else if (filas < antes)
    {
        beginRemoveRows({}, filas, antes - 1);
        m_filas.resize(std::size_t(filas));
        endRemoveRows();
    }
}

void Grilla::Modelo::cargar(std::vector<FilaDeGrilla> filas)
{
    beginResetModel();
    m_filas.clear();
    m_filas.reserve(filas.size());
    for (std::vector<QVariant>& celdas : filas)
    {
        Fila fila;
        fila.celdas = std::move(celdas);
        fila.celdas.resize(m_columnas.size());
        m_filas.push_back(std::move(fila));
    }
    pintarTodo(Grilla::blanco.rgb());
    endResetModel();
}

void Grilla::Modelo::borrar(int fila)
{
    beginRemoveRows({}, fila, fila);
    m_filas.erase(std::next(m_filas.begin(), fila));
    endRemoveRows();
}

void Grilla::Modelo::ordenar(const std::vector<int>& orden)
{
    beginResetModel();
    std::vector<Fila> ordenadas;
    ordenadas.reserve(m_filas.size());
    for (const int fila : orden)
    {
        ordenadas.push_back(std::move(m_filas[std::size_t(fila)]));
    }
    m_filas = std::move(ordenadas);
    endResetModel();
}

bool Grilla::Modelo::contiene(int columna, int fila) const
{
    return columna >= 0 && columna < columnas() && fila >= 0 && fila < rowCount();
}

QVariant Grilla::Modelo::valor(int columna, int fila) const
{
    return contiene(columna, fila) ? m_filas[std::size_t(fila)].celdas[std::size_t(columna)] : QVariant();
}

void Grilla::Modelo::poner(int columna, int fila, const QVariant& valor)
{
    m_filas[std::size_t(fila)].celdas[std::size_t(columna)] = valor;
}

void Grilla::Modelo::pintarTodo(QRgb color)
{
    m_fondo = color;
    ++m_pintada;
}

void Grilla::Modelo::pintar(int fila, QRgb color)
{
    m_filas[std::size_t(fila)].color = color;
    m_filas[std::size_t(fila)].pintada = m_pintada;
}

QRgb Grilla::Modelo::color(int fila) const
{
    const Fila& datos = m_filas[std::size_t(fila)];
    return datos.pintada == m_pintada ? datos.color : m_fondo;
}

int Grilla::Modelo::rowCount(const QModelIndex& padre) const
{
    return padre.isValid() ? 0 : int(m_filas.size());
}

int Grilla::Modelo::columnCount(const QModelIndex& padre) const
{
    return padre.isValid() ? 0 : int(m_vistas.size());
}

QVariant Grilla::Modelo::data(const QModelIndex& celda, int papel) const
{
    const ColumnaDeGrilla& col = columna(celda);
    const QVariant& dato = m_filas[std::size_t(celda.row())].celdas[std::size_t(propia(celda.column()))];
    switch (papel)
    {
    case Qt::DisplayRole:
        return textoDeCelda(col, dato);
    case Qt::EditRole:
        return textoParaEditar(col, dato);
    case Qt::CheckStateRole:
        return esTilde(col) ? QVariant(dato.toBool() ? Qt::Checked : Qt::Unchecked) : QVariant();
    case Qt::AccessibleTextRole:
        return esTilde(col) ? (dato.toBool() ? QStringLiteral("Sí") : QStringLiteral("No")) : textoDeCelda(col, dato);
    case Qt::TextAlignmentRole:
    {
        const bool derecha =
            col.derecha || col.clase == ColumnaDeGrilla::Entero || col.clase == ColumnaDeGrilla::Decimal;
        return QVariant((derecha ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    }
    default:
        return {};
    }
}

QVariant Grilla::Modelo::headerData(int seccion, Qt::Orientation orientacion, int papel) const
{
    if (orientacion != Qt::Horizontal || seccion < 0 || seccion >= columnCount())
    {
        return {};
    }
    const ColumnaDeGrilla& col = columna(propia(seccion));
    if (papel == Qt::DisplayRole)
    {
        return col.titulo;
    }
    const bool derecha = col.derecha || col.clase == ColumnaDeGrilla::Entero || col.clase == ColumnaDeGrilla::Decimal;
    if (papel == Qt::TextAlignmentRole)
    {
        const Qt::Alignment lado = derecha ? Qt::AlignRight : esTilde(col) ? Qt::AlignHCenter : Qt::AlignLeft;
        return QVariant(lado | Qt::AlignVCenter);
    }
    return {};
}

Qt::ItemFlags Grilla::Modelo::flags(const QModelIndex& celda) const
{
    Qt::ItemFlags marcas = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    const ColumnaDeGrilla& col = columna(celda);
    if (editable && col.clase != ColumnaDeGrilla::Fija)
    {
        marcas |= esTilde(col) ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable;
    }
    return marcas;
}
