#pragma once

#include <memory>

class TrabajoLargo;

/// While it lives, the program shows as long work that it waits for another copy to let the database go.
class EsperaDeBase
{
public:
    EsperaDeBase();
    ~EsperaDeBase();
    EsperaDeBase(const EsperaDeBase&) = delete;
    EsperaDeBase& operator=(const EsperaDeBase&) = delete;

private:
    std::unique_ptr<TrabajoLargo> m_trabajo;
};
