#include "Types/Collection.h"

#include "DataIO/DataSink.h"
#include "Exceptions/Check.h"
#include "Exceptions/IndexOutOfBounds.h"
#include "Exceptions/InvalidElement.h"
#include "Exceptions/InvalidLength.h"
#include "KLV/Value.h"
#include "Platform/BigEndian.h"
#include "Platform/Text.h"
#include "Templates/Containers.h"
#include "Types/Array.h"
#include "Types/Batch.h"
#include "Types/Factories/BaseTypeFactory.h"
#include "Types/ReadAvailable.h"
#include "Utils/Zeros.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

namespace Vantry { namespace Types {

namespace {

using Bytes = Templates::vector<unsigned char>;
using Element = std::unique_ptr<SimpleDataType>;

unsigned const HEADER_SIZE = 8;

// A count is a claim: room for more elements is made as they come in.
Platform::UInt32 const MOST_RESERVED = 4096;

[[noreturn]] void failLength(Bytes const & read, Templates::string const & text)
{
    throw Exceptions::InvalidLength(read.data(), read.size(), text.c_str(), __FILE__, __LINE__);
}

}

// What a collection holds: its header and its elements.
class Collection::Elements
{
public:
    VANTRY_CLASS_ALLOCATION

    explicit Elements(Platform::UInt32 elementSize) : size_(elementSize) {}

    Elements(KLV::Value & source, Identifiers::Identifier type)
    {
        Platform::UInt32 const howMany = readHeader(source);
        values_.reserve(std::min(howMany, MOST_RESERVED));
        for (Platform::UInt32 i = 0; i < howMany; ++i)
            readElement(source, type, howMany);
    }

    Elements(Elements const & other) : size_(other.size_)
    {
        values_.reserve(other.values_.size());
        for (Element const & value : other.values_)
            values_.emplace_back(value->clone().release());
    }

    Platform::UInt32 count() const { return static_cast<Platform::UInt32>(values_.size()); }
    Platform::UInt32 size() const { return size_; }

    SimpleDataType & at(Platform::UInt32 index) const
    {
        if (index >= count())
            VANTRY_FAIL(IndexOutOfBounds, "Exceptions::IndexOutOfBounds");
        return *values_[index];
    }

    void append(Element value)
    {
        if (size_ == 0 && values_.empty())
            size_ = value->serializedSize();
        if (value->serializedSize() != size_)
            VANTRY_FAIL(InvalidElement, "Appending an invalid element");
        values_.push_back(std::move(value));
    }

    void insertAt(Platform::UInt32 index, Element value)
    {
        if (value->serializedSize() != size_)
            VANTRY_FAIL(InvalidElement, "Trying to insert an invalid element");
        if (index > count())
            VANTRY_FAIL(IndexOutOfBounds, "Trying to insert an element past the end of the data");
        values_.insert(values_.begin() + index, std::move(value));
    }

    void remove(Platform::UInt32 index)
    {
        if (index >= count())
            VANTRY_FAIL(IndexOutOfBounds, "Trying to remove an element beyond the end of data");
        values_.erase(values_.begin() + index);
    }

    void replaceWith(Elements copy)
    {
        if (copy.values_.empty())
            copy.size_ = size_;
        else if (size_ != 0 && size_ != copy.size_)
            VANTRY_FAIL(InvalidElement, "Appending an invalid element");
        std::swap(size_, copy.size_);
        values_.swap(copy.values_);
    }

    void serialize(DataIO::DataSink & sink) const
    {
        unsigned char header[HEADER_SIZE];
        writeHeader(header, count());
        sink.write(header, sizeof(header));

        for (Element const & value : values_)
        {
            value->serialize(sink);
            if (value->serializedSize() < size_)
                Utils::writeZeros(sink, size_ - value->serializedSize());
        }
    }

private:
    void writeHeader(unsigned char * header, Platform::UInt32 howMany) const
    {
        Platform::writeBigEndian<Platform::UInt32>(howMany, header);
        Platform::writeBigEndian<Platform::UInt32>(size_, header + 4);
    }

    // Reads both fields and returns how many elements follow: as many as the
    // value has room for.
    Platform::UInt32 readHeader(KLV::Value & source)
    {
        Bytes read(HEADER_SIZE);
        read.resize(readAvailable(source, read.data(), HEADER_SIZE));
        if (read.size() < 4)
            failLength(read, "Invalid data size in collection. Not enough data to read number of elements");
        if (read.size() < HEADER_SIZE)
            failLength(read, "Invalid data size in collection. Not enough data to read element entry size");

        Platform::UInt32 const howMany = Platform::readBigEndian<Platform::UInt32>(read.data());
        size_ = Platform::readBigEndian<Platform::UInt32>(read.data() + 4);
        if (howMany != 0 && size_ == 0)
        {
            appendAvailable(source, read);
            failLength(read, "Incoherent size in collection. Element size is zero and element count is not zero");
        }
        if (source.remaining() < static_cast<Platform::UInt64>(howMany) * size_)
        {
            appendAvailable(source, read);
            failLength(read, ("Invalid data size in collection. Not enough data to read " + std::to_string(howMany) +
                              " elements of size " + std::to_string(size_))
                                 .c_str());
        }
        return howMany;
    }

    // Reads the next of `howMany` elements.
    void readElement(KLV::Value & source, Identifiers::Identifier type, Platform::UInt32 howMany)
    {
        try
        {
            KLV::Value entry(source, size_);
            Element value(Factories::BaseTypeFactory::instance().create(entry, type).release());
            if (value->serializedSize() < size_)
                skipRest(entry, *value);
            values_.push_back(std::move(value));
        }
        catch (Exceptions::InvalidLength const & failure)
        {
            throw withAllRead(failure, howMany);
        }
    }

    // An entry may be larger than its element, but it has to be there.
    static void skipRest(KLV::Value & entry, SimpleDataType const & element)
    {
        entry.discard();
        if (!entry.endOfStream())
            throw Exceptions::InvalidLength(element.rawBuffer(), element.serializedSize(), "Invalid data size in Value",
                                            __FILE__, __LINE__);
    }

    // The failure of an element, carrying what was read of the collection.
    Exceptions::InvalidLength withAllRead(Exceptions::InvalidLength const & failure, Platform::UInt32 howMany) const
    {
        Bytes read(HEADER_SIZE);
        writeHeader(read.data(), howMany);
        for (Element const & value : values_)
            read.insert(read.end(), value->rawBuffer(), value->rawBuffer() + value->serializedSize());
        read.insert(read.end(), failure.readData(), failure.readData() + failure.readDataLength());
        return Exceptions::InvalidLength(read.data(), read.size(), Platform::wstringToString(failure.message()).c_str(),
                                         __FILE__, __LINE__);
    }

    Platform::UInt32 size_ = 0;
    Templates::vector<Element> values_;
};

Collection::Collection(int elementSize) : elements_(new Elements(static_cast<Platform::UInt32>(elementSize))) {}

Collection::Collection(KLV::Value & source, Identifiers::Identifier elementType) :
    elements_(new Elements(source, elementType))
{
}

Collection::Collection(Collection const & other) : BaseType(other), elements_(new Elements(*other.elements_)) {}

Collection::~Collection()
{
    delete elements_;
}

void Collection::serialize(DataIO::DataSink & sink) const
{
    elements_->serialize(sink);
}

unsigned short Collection::serializedSize() const
{
    return static_cast<unsigned short>(elements_->count() * elements_->size() + HEADER_SIZE);
}

unsigned int Collection::size() const noexcept
{
    return elements_->count();
}

unsigned int Collection::elementSize() const noexcept
{
    return elements_->size();
}

SimpleDataType & Collection::at(unsigned int index)
{
    return elements_->at(index);
}

SimpleDataType const & Collection::at(unsigned int index) const
{
    return elements_->at(index);
}

void Collection::append(Templates::auto_ptr<SimpleDataType> element)
{
    elements_->append(Element(element.release()));
}

void Collection::remove(unsigned int index)
{
    elements_->remove(index);
}

void Collection::insertAt(unsigned int index, Templates::auto_ptr<SimpleDataType> element)
{
    elements_->insertAt(index, Element(element.release()));
}

void Collection::replaceElements(Collection const & other) const
{
    elements_->replaceWith(*other.elements_);
}

Array Array::operator=(Array const & other) const
{
    replaceElements(other);
    return *this;
}

Batch Batch::operator=(Batch const & other) const
{
    replaceElements(other);
    return *this;
}

template class Concrete<Array, Collection>;
template class Concrete<Batch, Collection>;

}}
