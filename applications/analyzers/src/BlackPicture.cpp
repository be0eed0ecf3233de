#include "BlackPicture.h"

#include "DataIO/BlockHolder.h"
#include "DataIO/Memory/MemoryBlockFactory.h"

#include <algorithm>
#include <vector>

namespace Vantry { namespace Analyzers {

namespace {

unsigned int const MACROBLOCK = 16;
unsigned int const LUMA_BLOCKS = 4;

// Pictures above this height tell part of a slice's row in three bits.
unsigned int const TALL = 2800;
unsigned int const ROWS_OF_SLICES = 128;

// Appends fields of bits, the most significant bit of each byte first.
class BitWriter
{
public:
    void put(unsigned int value, unsigned int count)
    {
        for (; count > 0; --count)
        {
            if (free_ == 0)
            {
                bytes_.push_back(0);
                free_ = 8;
            }
            bytes_.back() = static_cast<unsigned char>(bytes_.back() | (value >> (count - 1) & 1u) << --free_);
        }
    }

    void startCode(unsigned int value)
    {
        free_ = 0;
        put(1, 24);
        put(value, 8);
    }

    std::vector<unsigned char> const & bytes() const noexcept { return bytes_; }

private:
    std::vector<unsigned char> bytes_;
    unsigned int free_ = 0;
};

void writeHeaders(BitWriter & bits, bool isProgressive)
{
    bits.startCode(GROUP);
    bits.put(0, 12);
    bits.put(1, 1);    // marker
    bits.put(0, 12);   // 00:00:00:00
    bits.put(0b10, 2); // closed
    bits.startCode(PICTURE);
    bits.put(0, 10);      // temporal reference
    bits.put(1, 3);       // intra
    bits.put(0xFFFF, 16); // of variable rate
    bits.startCode(EXTENSION);
    bits.put(PICTURE_CODING_EXTENSION, 4);
    bits.put(0xFFFF, 16);               // no vectors
    bits.put(0b00, 2);                  // DC coefficients of eight bits
    bits.put(0b11, 2);                  // a frame
    bits.put(isProgressive ? 0 : 1, 1); // the top field first
    bits.put(0b100000, 6);              // transformed as a frame, all tables the first ones
    bits.put(isProgressive ? 1 : 0, 1); // chroma as in frames or in fields
    bits.put(isProgressive ? 1 : 0, 1);
    bits.put(0, 1);
}

// A macroblock of nothing but DC coefficients: the difference of luma from
// what is predicted, in the first block, and none in the others.
void writeMacroblock(BitWriter & bits, bool isFirst, unsigned int chromaBlocks)
{
    bits.put(0b11, 2); // the next one, intra
    for (unsigned int block = 0; block < LUMA_BLOCKS; ++block)
    {
        if (isFirst && block == 0)
        {
            bits.put(0b111110, 6);       // seven bits:
            bits.put(127 + 16 - 128, 7); // black is 16, predicted 128
        }
        else
            bits.put(0b100, 3);
        bits.put(0b10, 2); // end of block
    }
    for (unsigned int block = 0; block < chromaBlocks; ++block)
        bits.put(0b0010, 4);
}

void writeRow(BitWriter & bits, unsigned int row, unsigned int macroblocks, SequenceHeader const & sequence)
{
    bool const isTall = sequence.height > TALL;
    bits.startCode(1 + (isTall ? row % ROWS_OF_SLICES : row));
    if (isTall)
        bits.put(row / ROWS_OF_SLICES, 3);
    bits.put(1, 5); // quantiser
    bits.put(0, 1);
    for (unsigned int i = 0; i < macroblocks; ++i)
        writeMacroblock(bits, i == 0, 1u << sequence.chromaFormat);
}

}

Templates::auto_ptr<DataIO::Slice> blackPicture(SequenceHeader const & sequence)
{
    unsigned int const fields = sequence.isProgressive ? 1 : 2;
    unsigned int const rows = (sequence.height + fields * MACROBLOCK - 1) / (fields * MACROBLOCK) * fields;
    unsigned int const macroblocks = (sequence.width + MACROBLOCK - 1) / MACROBLOCK;

    BitWriter bits;
    writeHeaders(bits, sequence.isProgressive);
    for (unsigned int row = 0; row < rows; ++row)
        writeRow(bits, row, macroblocks, sequence);

    UInt64 const size = bits.bytes().size();
    DataIO::BlockHolder const block = DataIO::Memory::MemoryBlockFactory::instance().create(size);
    std::copy(bits.bytes().begin(), bits.bytes().end(), block.block()->data());
    return Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice(block.block(), 0, size));
}

}}
