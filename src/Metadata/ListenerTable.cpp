#include "Metadata/ListenerTable.h"

#include <utility>

namespace Vantry { namespace Metadata {

ListenerTable::ListenerTable(Index index) : index_(std::move(index)), indexListens_(true) {}

void ListenerTable::add(Listener const & listener)
{
    if (listener == index_)
        indexListens_ = true;
    else
        listeners_.insert(listener);
}

void ListenerTable::remove(Listener const & listener)
{
    if (listener == index_)
        indexListens_ = false;
    else
        listeners_.erase(listener);
}

void ListenerTable::clear()
{
    listeners_.clear();
    indexListens_ = false;
    index_.reset();
}

void ListenerTable::replaceIndex(Index index)
{
    listeners_.erase(Listener(index));
    index_ = std::move(index);
    indexListens_ = true;
}

}}
