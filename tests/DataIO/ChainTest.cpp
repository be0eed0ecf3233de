#include "DataIO/Chain.h"

#include "support/Slices.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <vector>

namespace Vantry { namespace Tests {

using DataIO::Chain;
using DataIO::Slice;
using Templates::auto_ptr;

namespace {

UInt64 const EVERYTHING = std::numeric_limits<UInt64>::max();

// Where each byte lies: equal for two chains only if none was copied.
using Addresses = std::vector<unsigned char const *>;

Addresses addressesOf(Slice const & slice)
{
    Addresses addresses;
    for (unsigned char const * byte = slice.begin(); byte != slice.end(); ++byte)
        addresses.push_back(byte);
    return addresses;
}

Addresses addressesOf(Chain const & chain)
{
    Addresses addresses;
    for (Slice const & slice : chain)
        for (unsigned char const * byte : addressesOf(slice))
            addresses.push_back(byte);
    return addresses;
}

Bytes bytesAt(Addresses const & addresses)
{
    Bytes bytes;
    for (unsigned char const * byte : addresses)
        bytes.push_back(*byte);
    return bytes;
}

Addresses operator+(Addresses left, Addresses const & right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

// The part of `addresses` that lies in the range, as far as it goes.
Addresses part(Addresses const & addresses, UInt64 offset, UInt64 size)
{
    UInt64 const begin = std::min<UInt64>(offset, addresses.size());
    UInt64 const end = begin + std::min<UInt64>(size, addresses.size() - begin);
    return Addresses(addresses.begin() + static_cast<std::ptrdiff_t>(begin),
                     addresses.begin() + static_cast<std::ptrdiff_t>(end));
}

// 0 1 2 3 | 4 5 6 7 8 9, on two blocks.
void fillTwoBlocks(CountingBlocks & blocks, Chain & chain)
{
    chain.push_back(blocks.slice(counting(4)));
    chain.push_back(blocks.slice(counting(6, 4)));
}

}

TEST(Chain, MovesBytesLikeAListOfTheirAddresses)
{
    std::mt19937 random(377);
    auto upTo = [&](UInt64 most)
    {
        return random() % (most + 1);
    };

    CountingBlocks blocks;
    {
        Chain chains[2];
        Addresses models[2];
        unsigned char next = 0;

        for (int step = 0; step < 5000; ++step)
        {
            UInt64 const which = upTo(1);
            Chain & chain = chains[which];
            Chain & other = chains[1 - which];
            Addresses & model = models[which];
            Addresses & otherModel = models[1 - which];
            UInt64 const size = model.size();
            UInt64 const n = upTo(20) == 0 ? EVERYTHING : upTo(size + 3);
            UInt64 const most = std::min(n, size);
            int const made = blocks.made();
            bool copies = false;

            switch (upTo(7))
            {
            case 0:
            case 1:
            {
                auto_ptr<Slice> slice = blocks.slice(counting(upTo(12), next));
                next = static_cast<unsigned char>(next + slice->size());
                auto_ptr<Slice> tail = slice->splice(slice->begin() + upTo(slice->size()));
                copies = true;
                if (upTo(1) == 0)
                {
                    model = model + addressesOf(*slice) + addressesOf(*tail);
                    chain.push_back(slice);
                    chain.push_back(tail);
                }
                else
                {
                    model = addressesOf(*slice) + addressesOf(*tail) + model;
                    chain.push_front(tail);
                    chain.push_front(slice);
                }
                break;
            }
            case 2:
                otherModel = otherModel + part(model, 0, most);
                model = part(model, most, EVERYTHING);
                chain.chopBegin(n, other);
                break;
            case 3:
                otherModel = part(model, size - most, EVERYTHING) + otherModel;
                model = part(model, 0, size - most);
                chain.chopEnd(n, other);
                break;
            case 4:
                otherModel = upTo(1) == 0 ? (other.push_back(chain), otherModel + model)
                                          : (other.push_front(chain), model + otherModel);
                model.clear();
                break;
            case 5:
                while (chain.slice_count() > 5)
                {
                    auto_ptr<Slice> const first = chain.erase(chain.begin());
                    model = part(model, first->size(), EVERYTHING);
                }
                break;
            default:
            {
                UInt64 const offset = upTo(size + 1);
                copies = true;
                ASSERT_EQ(bytesOf(*chain.makeSlice(offset, n)), bytesAt(part(model, offset, n)));
            }
            }

            ASSERT_EQ(addressesOf(chain), model);
            ASSERT_EQ(addressesOf(other), otherModel);
            ASSERT_EQ(chain.data_size(), model.size());
            ASSERT_TRUE(copies || blocks.made() == made);
        }
    }
    EXPECT_EQ(blocks.alive(), 0);
}

TEST(Chain, JoinsNeighboursAtItsEndOnly)
{
    CountingBlocks blocks;
    Chain chain, front, back;
    chain.push_back(blocks.slice(counting(100)));

    for (UInt64 size : {1, 30, 0, 69})
        chain.chopBegin(size, back);
    EXPECT_TRUE(chain.empty());
    EXPECT_EQ(back.slice_count(), 1u) << "rejoined in order";

    for (UInt64 size : {1, 30, 0, 69})
        back.chopEnd(size, front);
    EXPECT_TRUE(back.empty());
    EXPECT_EQ(front.slice_count(), 3u) << "nothing merges at the front";

    front.chopBegin(69, chain);
    chain.push_back(front);
    EXPECT_EQ(chain.slice_count(), 3u) << "nor where chains meet";
    EXPECT_EQ(bytesOf(chain), counting(100));

    chain.push_back(auto_ptr<Slice>(new Slice));
    EXPECT_EQ(chain.slice_count(), 3u);
    chain.push_front(auto_ptr<Slice>(new Slice));
    EXPECT_EQ(chain.slice_count(), 4u);
    EXPECT_EQ(chain.data_size(), 100u);
    EXPECT_EQ(blocks.made(), 1);
}

TEST(Chain, CopiesARangeOnlyAcrossBlocks)
{
    struct Case
    {
        char const * name;
        UInt64 offset, size;
        Bytes result;
        bool copied;
    };

    Case const CASES[] = {
        {"nothing at the start", 0, 0, {}, false},
        {"a part of the first block", 1, 2, counting(2, 1), false},
        {"up to the seam", 1, 3, counting(3, 1), false},
        {"over the seam", 3, 2, counting(2, 3), true},
        {"a part of the last block", 5, 5, counting(5, 5), false},
        {"nothing at the seam", 4, 0, {}, false},
        {"nothing at the end", 10, 0, {}, false},
        {"more than there is", 8, 5, counting(2, 8), true},
        {"more than there can be", 2, EVERYTHING, counting(8, 2), true},
        {"behind the end", 11, 3, {}, false},
    };

    for (Case const & c : CASES)
    {
        SCOPED_TRACE(c.name);
        CountingBlocks blocks;
        Chain chain;
        fillTwoBlocks(blocks, chain);

        auto_ptr<Slice> const slice = chain.makeSlice(c.offset, c.size);
        EXPECT_EQ(bytesOf(*slice), c.result);
        EXPECT_EQ(blocks.made(), c.copied ? 3 : 2);
        EXPECT_EQ(slice->block()->size(), c.copied ? c.result.size() : c.offset > 10 ? 0 : c.offset > 4 ? 6 : 4);
        EXPECT_EQ(bytesOf(chain), counting(10));
    }

    Chain const empty;
    EXPECT_EQ(empty.makeSlice(0, 0)->block(), Slice().block());
    EXPECT_EQ(empty.makeSlice(0, 9)->size(), 0u);
}

TEST(SliceList, LinksSlicesThatItDoesNotOwn)
{
    CountingBlocks blocks;
    auto_ptr<Slice> const one = blocks.slice(counting(1));
    auto_ptr<Slice> const two = blocks.slice(counting(2));

    DataIO::SliceList list, other;
    list.push_back(two.get());
    EXPECT_EQ(list.insert(list.begin(), one.get()).slice(), one.get());
    EXPECT_EQ(list.erase(list.begin()).slice(), two.get());
    EXPECT_EQ(one->next(), two.get()) << "an erased slice keeps its links";

    other.push_back(one.get());
    list.move(list.end(), other);
    list.move(list.end(), other);
    EXPECT_TRUE(other.empty());
    EXPECT_EQ(list.size(), 2u);
    EXPECT_EQ(list.previous(), one.get());
}

}}
