#pragma once

#include "DataIO/RandomAccessDataSource.h"
#include "Exceptions/BaseException.h"

namespace Vantry { namespace MXFIO {

/// Puts a source back to where it was, whatever is read from it meanwhile:
/// look-ups share the source with the essence stream.
class PositionKeeper
{
public:
    explicit PositionKeeper(DataIO::RandomAccessDataSource & source) :
        source_(source), position_(source.absoluteOffset())
    {
    }
    PositionKeeper(PositionKeeper const &) = delete;
    PositionKeeper & operator=(PositionKeeper const &) = delete;

    ~PositionKeeper()
    {
        try
        {
            if (source_.absoluteOffset() != position_)
                source_.seek(position_);
        }
        catch (Exceptions::BaseException const &)
        {
            // Whoever reads next hears of it.
        }
    }

private:
    DataIO::RandomAccessDataSource & source_;
    UInt64 const position_;
};

}}
