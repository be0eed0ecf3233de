#include "GenericContainer/RP224UniversalLabels.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidValue.h"
#include "Metadata/ConstantTable.h"
#include "Platform/Text.h"
#include "Templates/Containers.h"
#include "Types/UniversalLabel.h"

#include <string>

namespace Vantry { namespace GenericContainer {

namespace {

using Labels = RP224UniversalLabels;
using Info = Labels::EssenceContainerInfo;
using Types::UniversalLabel;

// What a value of the wrap byte stands for.
struct Wrapping
{
    unsigned char value;
    Labels::WrapKind kind;
    Labels::Mapping mapping = Labels::UNKNOWN; // unless it is the row's
};

// The last of each list, with value 0, stands for all other values.
unsigned char const OTHERS = 0;
Labels::WrapKind const REFUSED = Labels::WrapKind(-1);

// clang-format off
constexpr Wrapping ALWAYS_FRAME[] = {{OTHERS, Labels::FRAME}};
constexpr Wrapping FRAME_OR_CLIP[] = {{1, Labels::FRAME}, {2, Labels::CLIP}, {OTHERS, Labels::NEITHER}};
constexpr Wrapping FRAME_OR_CLIP_ALONE[] = {{1, Labels::FRAME}, {2, Labels::CLIP}, {OTHERS, REFUSED}};
constexpr Wrapping FRAME_CLIP_OR_OTHER[] = {
    {1, Labels::FRAME}, {2, Labels::CLIP}, {3, Labels::NEITHER}, {OTHERS, REFUSED}};
constexpr Wrapping CLIP_AT_MOST[] = {{2, Labels::CLIP}, {OTHERS, Labels::NEITHER}};
constexpr Wrapping WAVE_OR_AES3[] = {
    {1, Labels::FRAME}, {2, Labels::CLIP}, {8, Labels::NEITHER},
    {3, Labels::FRAME, Labels::AES3}, {4, Labels::CLIP, Labels::AES3}, {9, Labels::NEITHER, Labels::AES3},
    {OTHERS, REFUSED}};
// clang-format on

// Which bits tell a mapping: neither the registry version nor the variant.
using Bytes = Metadata::IdentifierBytes;
constexpr Bytes MAPPING("FF.FF.FF.FF.FF.FF.FF.00.FF.FF.FF.FF.FF.FF.00.00");
constexpr Bytes PICTURE_MAPPING("FF.FF.FF.FF.FF.FF.FF.00.FF.FF.FF.FF.FF.00.00.00");

struct Row
{
    Bytes label;
    Bytes mask;
    Labels::Mapping mapping;
    int wrapByte;
    Wrapping const * wrappings;
    char const * complaint = ""; // ahead of a value that is refused
    char const * place = "";     // behind it
};

// clang-format off
constexpr Row ROWS[] = {
    {Bytes("06.0E.2B.34.04.01.01.01.0D.01.03.01.02.02.00.00"), MAPPING, Labels::DV, 15, FRAME_OR_CLIP_ALONE,
     "Invalid wrap kind value ", ", in the Essence Container UL, "},
    {Bytes("06.0E.2B.34.04.01.01.01.0D.01.03.01.02.01.00.00"), MAPPING, Labels::D10, 15, ALWAYS_FRAME},
    {Bytes("06.0E.2B.34.04.01.01.02.0D.01.03.01.02.04.00.00"), MAPPING, Labels::MPEG_ELEMENTARY, 15, FRAME_OR_CLIP},
    {Bytes("06.0E.2B.34.04.01.01.01.0D.01.03.01.02.05.00.00"), MAPPING, Labels::UNCOMPRESSED, 15, FRAME_OR_CLIP},
    {Bytes("06.0E.2B.34.04.01.01.01.0D.01.03.01.02.06.00.00"), MAPPING, Labels::BROADCAST_WAVE, 14, WAVE_OR_AES3,
     "Invalid value, byte 15, ", ", in the AES/BWF Wave Essence Container UL, "},
    {Bytes("06.0E.2B.34.04.01.01.02.0D.01.03.01.02.08.00.00"), MAPPING, Labels::MPEG_PROGRAM, 15, CLIP_AT_MOST},
    {Bytes("06.0E.2B.34.04.01.01.02.0D.01.03.01.02.09.00.00"), MAPPING, Labels::MPEG_TRANSPORT, 15, CLIP_AT_MOST},
    {Bytes("06.0E.2B.34.04.01.01.03.0D.01.03.01.02.0A.00.00"), MAPPING, Labels::A_LAW, 14, FRAME_CLIP_OR_OTHER,
     "Invalid wrap kind value ", ", in the A-Law Essence Container UL, "},
    {Bytes("06.0E.2B.34.04.01.01.07.0D.01.03.01.02.0C.00.00"), MAPPING, Labels::JPEG_2000, 14, FRAME_OR_CLIP_ALONE,
     "Invalid wrap kind value ", ", in the JPEG2000 Essence Container UL, "},
    {Bytes("06.0E.2B.34.04.01.01.02.0D.01.03.01.02.0F.00.00"), MAPPING, Labels::AVC_NAL_UNIT_STREAM, 15, CLIP_AT_MOST},
    {Bytes("06.0E.2B.34.04.01.01.02.0D.01.03.01.02.10.00.00"), MAPPING, Labels::AVC_BYTE_STREAM, 15, CLIP_AT_MOST},
    {Bytes("06.0E.2B.34.04.01.01.08.04.01.02.02.01.00.00.00"), PICTURE_MAPPING, Labels::COMPRESSED, 15, FRAME_OR_CLIP},
};
// clang-format on

bool matches(Row const & row, UniversalLabel const & label)
{
    return Types::compareMasked(label, UniversalLabel(row.label.bytes), UniversalLabel(row.mask.bytes));
}

[[noreturn]] void refuse(Row const & row, UniversalLabel const & label)
{
    Templates::wstring const text = label.toString(Types::StringRepresentationEncodingType::DOTTED_BYTES);
    VANTRY_FAIL(InvalidValue, Templates::string(row.complaint) + std::to_string(label[row.wrapByte]).c_str() +
                                  row.place + Platform::wstringToString(text.c_str()));
}

Info decode(Row const & row, UniversalLabel const & label)
{
    Wrapping const * wrapping = row.wrappings;
    while (wrapping->value != OTHERS && wrapping->value != label[row.wrapByte])
        ++wrapping;
    if (wrapping->kind == REFUSED)
        refuse(row, label);
    return {wrapping->mapping == Labels::UNKNOWN ? row.mapping : wrapping->mapping, wrapping->kind};
}

}

RP224UniversalLabels::EssenceContainerInfo
RP224UniversalLabels::essenceContainerInfo(Types::UniversalLabel const & label)
{
    for (Row const & row : ROWS)
        if (matches(row, label))
            return decode(row, label);
    return {UNKNOWN, NEITHER};
}

}}
