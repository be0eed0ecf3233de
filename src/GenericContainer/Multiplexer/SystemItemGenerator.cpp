#include "GenericContainer/Multiplexer/SystemItemGenerator.h"

#include "DataIO/BlockHolder.h"
#include "DataIO/Memory/MemoryBlockFactory.h"
#include "DataIO/Slice.h"
#include "GenericContainer/EditUnit.h"
#include "GenericContainer/Multiplexer/TimeCodeHandler.h"
#include "GenericContainer/SystemMetadataPack.h"

#include <algorithm>
#include <iterator>

namespace Vantry { namespace GenericContainer { namespace Multiplexer {

namespace {

unsigned char const SYSTEM_ITEM = 4;

unsigned char const EMPTY_PACKAGE_METADATA_SET[] = {0x06, 0x0E, 0x2B, 0x34, 0x02, 0x43, 0x01, 0x01, 0x0D, 0x01,
                                                    0x03, 0x01, 0x04, 0x01, 0x02, 0x00, 0x83, 0x00, 0x00, 0x00};

DataIO::Slice emptyPackageMetadataSet()
{
    UInt64 const size = std::size(EMPTY_PACKAGE_METADATA_SET);
    DataIO::BlockHolder const block = DataIO::Memory::MemoryBlockFactory::instance().create(size);
    std::copy_n(EMPTY_PACKAGE_METADATA_SET, size, block.block()->data());
    return {block.block(), 0, size};
}

Templates::Rational<int> inverseOf(Templates::Rational<int> const & rate)
{
    return {rate.denominator(), rate.numerator()};
}

}

class SystemItemGenerator::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    Impl(Templates::Rational<int> const & packageRate, Templates::auto_ptr<TimeCodeHandlerBase> timeCodeHandler,
         Types::UniversalLabel const & essenceContainer) :
        rate(packageRate),
        duration(inverseOf(packageRate)),
        label(essenceContainer),
        timeCodes(timeCodeHandler),
        set_(emptyPackageMetadataSet()),
        pack_(packageRate)
    {
        pack_.pictureItem(true);
        pack_.soundItem(true);
        pack_.universalLabel(label);
    }

    void preload()
    {
        if (!isPreloaded_)
            timeCodes->update(pack_);
        isPreloaded_ = true;
    }

    void writeTo(DataIO::Chain & chain)
    {
        preload();
        isPreloaded_ = false;
        chain.push_back(pack_.serialize());
        chain.push_back(Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice(set_)));
        pack_.incrementContinuityCount();
    }

    unsigned int size() const
    {
        return pack_.serializedSize() + static_cast<unsigned int>(std::size(EMPTY_PACKAGE_METADATA_SET));
    }

    Templates::Rational<int> rate;
    Templates::Rational<int> duration;
    Types::UniversalLabel label;
    Templates::auto_ptr<TimeCodeHandlerBase> timeCodes;
    Templates::Rational<int> precharge;
    UInt64 maximumToSkip = 0;
    int bound = -1;

private:
    // All edit units share its bytes.
    DataIO::Slice set_;
    SystemMetadataPack pack_;
    bool isPreloaded_ = false;
};

SystemItemGenerator::SystemItemGenerator(Templates::Rational<int> const & rate, Utils::TimeCode const & start,
                                         Types::UniversalLabel const & essenceContainer) :
    impl_(new Impl(rate, makeTimeCodeHandler(start), essenceContainer))
{
}

SystemItemGenerator::SystemItemGenerator(Templates::Rational<int> const & rate,
                                         Templates::SharedPtr<TimeCodeProvider> provider,
                                         Types::UniversalLabel const & essenceContainer) :
    impl_(new Impl(rate, makeTimeCodeHandler(provider), essenceContainer))
{
}

SystemItemGenerator::~SystemItemGenerator()
{
    delete impl_;
}

Templates::Rational<int> SystemItemGenerator::editRate()
{
    return impl_->rate;
}

void SystemItemGenerator::editRate(Templates::Rational<int> const & containerRate)
{
    impl_->timeCodes->setRate(containerRate);
    impl_->rate = containerRate;
    impl_->duration = inverseOf(containerRate);
}

UInt64 SystemItemGenerator::maximumToSkip() const
{
    return impl_->maximumToSkip;
}

void SystemItemGenerator::maximumToSkip(UInt64 bytes)
{
    impl_->maximumToSkip = bytes;
}

bool SystemItemGenerator::preload()
{
    impl_->preload();
    return true;
}

bool SystemItemGenerator::setMetadata(Metadata::PartitionMetadata &, Metadata::Structural::SourcePackage *,
                                      unsigned int, unsigned int)
{
    return true;
}

bool SystemItemGenerator::nextEditUnit(EditUnit & unit)
{
    impl_->writeTo(unit.data);
    unit.valid = true;
    unit.duration = impl_->duration;
    unit.timeCode = impl_->timeCodes->current();
    return true;
}

bool SystemItemGenerator::finalize()
{
    return true;
}

Types::UniversalLabel SystemItemGenerator::universalLabel()
{
    return impl_->label;
}

bool SystemItemGenerator::isCBE() const
{
    return true;
}

void SystemItemGenerator::boundedEditUnitSize(int size)
{
    impl_->bound = size;
}

unsigned int SystemItemGenerator::boundedEditUnitSize() const
{
    return impl_->bound < 1 ? impl_->size() : static_cast<unsigned int>(impl_->bound);
}

bool SystemItemGenerator::containsTemporalDependencies() const
{
    return false;
}

Utils::TimeCode SystemItemGenerator::currentTimeCode()
{
    return impl_->timeCodes->current();
}

unsigned char SystemItemGenerator::itemTypeIdentifier() const
{
    return SYSTEM_ITEM;
}

unsigned char SystemItemGenerator::essenceElementType() const
{
    return 0;
}

unsigned int SystemItemGenerator::requiredKAGSize() const
{
    return 1;
}

bool SystemItemGenerator::done()
{
    return false;
}

void SystemItemGenerator::setPreChargeDuration(Templates::Rational<int> const & seconds)
{
    impl_->precharge = seconds;
}

Templates::Rational<int> SystemItemGenerator::getPreChargeDuration()
{
    return impl_->precharge;
}

}}}
