#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

/// Watches from its own thread that the program comes to rest again and again. When it has not for `limite`, whether it
/// runs in circles or stands still, `alColgarse` is called with what it was doing.
class Vigia
{
public:
    using AlColgarse = std::function<void(const std::string& enQue)>;
    Vigia(std::chrono::milliseconds limite, AlColgarse alColgarse);
    ~Vigia();
    Vigia(const Vigia&) = delete;
    Vigia& operator=(const Vigia&) = delete;

    /// The program is alive.
    void vive();
    /// From now on it does this.
    void empieza(std::string enQue);

private:
    void mirar();

    std::chrono::milliseconds m_limite;
    AlColgarse m_alColgarse;
    std::mutex m_cerrojo;
    std::condition_variable m_aviso;
    std::chrono::steady_clock::time_point m_ultima = std::chrono::steady_clock::now();
    std::string m_enQue;
    bool m_fin = false;
    std::thread m_hilo; // last: it uses all the others
};
