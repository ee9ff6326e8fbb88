#pragma once

#include <QtGlobal>
#include <functional>

/// How a long work tells how far it is. A total of 0: it goes on, and how far is not known.
using Aviso = std::function<void(qint64 hecho, qint64 total)>;
