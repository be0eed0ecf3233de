#include "Initializer.h"

namespace Vantry { namespace {

// The notifications of the system's loader. This is the library's last
// source: its static object is built after all others and goes before them,
// so that teardowns find the whole library alive.
class LoadNotification
{
public:
    LoadNotification() { Initializer::instance(); }
    LoadNotification(LoadNotification const &) = delete;
    LoadNotification & operator=(LoadNotification const &) = delete;

    ~LoadNotification()
    {
        try
        {
            Initializer::shutdown();
        }
        catch (...)
        {
            // Nobody is left to be told.
        }
    }
};

LoadNotification const notification;

}}
