#pragma once

#include "GenericContainer/Timecode331M.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Rational.h"
#include "Templates/auto_ptr.h"
#include "Types/Declarations.h"
#include "Utils/TimeCode.h"

namespace Vantry {
namespace DataIO {
class Slice;
class SliceReader;
}

namespace GenericContainer {

/// What a content package says of itself in its system item (SMPTE 385M):
///
///      0  16  key
///     16   4  length field: 57
///     20   1  bitmap of what there is
///     21   1  rate: bit 0 for 1/1.001, bits 1 to 5 a code
///     22   1  type: 0
///     23   2  channel handle: 0
///     25   2  continuity count
///     27  16  label of the essence container
///     43  17  creation stamp, a Timecode331M
///     60  17  user stamp, a Timecode331M
///
/// All numbers are big-endian.
class VANTRY_EXPORT SystemMetadataPack
{
public:
    VANTRY_CLASS_ALLOCATION

    /// A pack that says nothing but its rate.
    ///
    /// \param packageRate  content packages per second. Rates other than 24,
    ///                     25, 30, 48, 50, 60, 72, 75, 90, 96, 100 and 120, and
    ///                     those of them by 1.001, have no code.
    explicit SystemMetadataPack(Templates::Rational<int> const & packageRate);

    /// Reads the 57 bytes of the value; key and length field lie ahead of
    /// them.
    ///
    /// \throws Exceptions::NotEnoughData when there are fewer.
    explicit SystemMetadataPack(DataIO::SliceReader & reader);

    /// The whole packet, on a block of its own.
    Templates::auto_ptr<DataIO::Slice> serialize() const;

    /// Bytes of the whole packet: 77.
    unsigned int serializedSize() const;

    /// Content packages per second; 0/1 for a code that isn't known.
    Templates::Rational<int> const & packageRate() const;

    /// The stamps; undefined where there is none.
    ///
    /// \throws Exceptions::InvalidValue for digits that are no time code at
    ///         the pack's rate, rounded up.
    Utils::TimeCode creationTimecode() const;
    Utils::TimeCode userTimecode() const;
    void creationTimecode(Utils::TimeCode const & timeCode);
    void userTimecode(Utils::TimeCode const & timeCode);

    /// The label of the essence container; zeros where there is none.
    Types::UniversalLabel universalLabel() const;
    void universalLabel(Types::UniversalLabel const & label);

    /// What there is in the content package.
    bool pictureItem() const;
    bool soundItem() const;
    bool dataItem() const;
    bool controlElement() const;
    void pictureItem(bool is);
    void soundItem(bool is);
    void dataItem(bool is);
    void controlElement(bool is);

    /// Number of the content package, modulo 65536.
    unsigned short continuityCount() const;
    void incrementContinuityCount();

private:
    // The packet, byte for byte.
    struct WholePack
    {
        unsigned char key[16];
        unsigned char length[4];
        unsigned char bitmap;
        unsigned char rate;
        unsigned char type;
        unsigned char channelHandle[2];
        unsigned char continuityCount[2];
        unsigned char label[16];
        Timecode331M creation;
        Timecode331M user;
    };

    bool has(unsigned char bit) const;
    void set(unsigned char bit, bool is);
    void writeHead();
    unsigned char * bytes();
    Utils::TimeCode read(unsigned char bit, Timecode331M const & stamp) const;

    WholePack pack_;
    Templates::Rational<int> packageRate_;
};

}
}
