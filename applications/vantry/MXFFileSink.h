#pragma once

#include "DataIO/Chain.h"
#include "DataIO/RandomAccessDataSink.h"
#include "GatheringFile.h"

namespace Vantry { namespace Application {

/// A new file that takes essence from where it was read to: units are held
/// until there are enough of them for one call to the system. Behind the end
/// of the units, bytes that are in the file can be written anew.
class MXFFileSink : public DataIO::RandomAccessDataSink
{
public:
    /// \param draft  where to make the file
    /// \param name   what failures call it
    /// \throws Failure when the file can't be made, as those below when it
    ///         can't be written.
    MXFFileSink(std::filesystem::path const & draft, std::filesystem::path const & name) :
        file_(draft, name), position_(0), held_(0)
    {
    }

    /// Appends a unit and leaves nothing of it.
    void append(DataIO::Chain & unit);

    /// Hands all units to the system.
    void flush();

    /// Flushes, and ends the file.
    void close();

    UInt64 size() const { return file_.size(); }

    void write(unsigned char const * source, UInt64 howMuch) override;
    UInt64 absoluteOffset() const override { return position_; }
    UInt64 seek(UInt64 position) override;

private:
    GatheringFile file_;
    UInt64 position_;
    DataIO::Chain units_;
    UInt64 held_; // bytes of the units
};

}}
