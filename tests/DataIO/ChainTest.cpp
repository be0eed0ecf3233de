#include "DataIO/Chain.h"

#include "support/Slices.h"

#include <gtest/gtest.h>

#include <limits>

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

}}
