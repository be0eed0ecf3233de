#pragma once

#include "Exceptions/InvalidFormat.h"
#include "GenericContainer/DefaultIndexTableGenerator.h"
#include "GenericContainer/IndexSegmentInfo.h"
#include "GenericContainer/Source.h"
#include "GenericStream/Source.h"
#include "IndexTables/IndexEntry.h"
#include "MXFIO/FutureUpdater.h"
#include "support/MXFFile.h"
#include "support/RootMetadata.h"
#include "support/Slices.h"

namespace Vantry { namespace Tests {

/// What a source in memory is to give, and what becomes of it.
struct EssencePlan
{
    unsigned int units = 10;

    /// Bytes of a unit; the same for all, or one more for each.
    UInt64 unitSize = 100;
    bool growing = false;

    unsigned int kagSize = 1;

    /// No piece ends a unit.
    bool isClip = false;

    /// A generic stream, which is filled up to its grid by whom gets it.
    bool isStream = false;

    /// Leaves the value's first byte to be written again, as EEh.
    bool patched = false;

    /// The unit at which it throws, once; behind the last, when it is to be
    /// finalized.
    unsigned int failsAt = ~0u;

    /// Empty answers ahead of each unit.
    unsigned int emptyAnswers = 0;

    Bytes given = {};
    bool finalized = false;
    int alive = 0;
};

using EssencePlanPtr = std::shared_ptr<EssencePlan>;

/// Writes the first byte of a value again.
class FirstBytePatch : public MXFIO::FutureUpdater
{
public:
    bool prepare() override { return true; }
    void patch(UInt64 offset, UInt64 & position, DataIO::Chain & chain) override
    {
        position = offset + 20;
        chain.push_back(blocks().slice({0xEE}));
    }

    static CountingBlocks & blocks()
    {
        static CountingBlocks blocks;
        return blocks;
    }
};

/// Gives the units of a plan at 25 per second, for any kind of source.
template <class Base>
class MemorySource : public Base
{
public:
    MemorySource(EssencePlanPtr const & plan, unsigned char element) : plan_(plan), element_(element)
    {
        ++plan_->alive;
    }
    MemorySource(MemorySource const &) = delete;
    MemorySource & operator=(MemorySource const &) = delete;
    ~MemorySource() override { --plan_->alive; }

    bool next(DataIO::Chain & chain, bool & complete, Templates::SharedPtr<MXFIO::FutureUpdater> & updater,
              Templates::Rational<Int64> & duration) override
    {
        complete = true;
        if (done() || (plan_->emptyAnswers != 0 && ++answers_ % (plan_->emptyAnswers + 1) != 0))
            return !done();
        failOnce();
        if (plan_->patched && unit_ == 0)
            updater = Templates::SharedPtr<MXFIO::FutureUpdater>(new FirstBytePatch);
        tellUnit(plan_->given.size());
        UInt64 const size = plan_->unitSize + (plan_->growing ? unit_ : 0);
        Bytes const bytes = packet(essenceKey(element_), repeated(size - 20, static_cast<unsigned char>(unit_)));
        complete = !plan_->isClip;
        UInt64 const gap = Utils::alignBytes(plan_->kagSize, size, 20);
        Bytes const behind = gap != 0 && (complete || !plan_->isStream) ? fill(gap) : Bytes();
        chain.push_back(FirstBytePatch::blocks().slice(plan_->isStream ? bytes : bytes + behind));
        plan_->given += bytes + behind;
        ++unit_;
        duration = {1, 25};
        return !done();
    }

    bool done() const override { return unit_ == plan_->units; }
    unsigned int kagSize() const override { return plan_->kagSize; }

protected:
    virtual void tellUnit(UInt64) {}

    void failOnce()
    {
        if (plan_->failsAt != unit_)
            return;
        plan_->failsAt = ~0u;
        throw Exceptions::InvalidFormat("a bad unit", __FILE__, __LINE__);
    }

    EssencePlanPtr const plan_;
    unsigned char const element_;
    unsigned int unit_ = 0;
    unsigned int answers_ = 0;
};

using MemoryStream = MemorySource<GenericStream::Source>;

/// An essence container with the index tables of the library.
class MemoryContainer : public MemorySource<GenericContainer::Source>
{
public:
    MemoryContainer(EssencePlanPtr const & plan, unsigned char element, Metadata::Structural::SourcePackage & package) :
        MemorySource(plan, element), package_(package), label_(essenceKey()), rate_(25)
    {
        UInt32 const size = static_cast<UInt32>(plan->unitSize);
        UInt32 const stored = size + static_cast<UInt32>(Utils::alignBytes(plan->kagSize, size, 20));
        Templates::auto_ptr<GenericContainer::DefaultIndexTableGenerator> generator(
            new GenericContainer::DefaultIndexTableGenerator);
        generator->setupIndexSegments({rate_,
                                       20,
                                       0,
                                       GenericContainer::IndexSegmentInfo::FRAME_WRAPPING,
                                       false,
                                       {{plan->growing ? 0 : stored, size, 0, false, false, false, false, true}}});
        generator_ = generator;
    }

    void finalize() override
    {
        failOnce();
        plan_->finalized = true;
    }
    Metadata::Structural::SourcePackage & sourcePackage() override { return package_; }
    Types::UniversalLabel const & essenceContainerUL() override { return label_; }
    Templates::Rational<int> const & packageRate() override { return rate_; }
    bool isCBE() const override { return !plan_->growing; }
    MXFIO::IndexTableGenerator * indexTableGenerator() override { return generator_.get(); }
    void indexTableGenerator(Templates::auto_ptr<MXFIO::IndexTableGenerator> generator) override
    {
        generator_ = generator;
    }

private:
    void tellUnit(UInt64 streamOffset) override
    {
        auto & generator = dynamic_cast<GenericContainer::DefaultIndexTableGenerator &>(*generator_);
        generator.writeIndexEntry(IndexTables::IndexEntry(streamOffset));
        generator.currentContentInfo(unit_ + 1, streamOffset);
    }

    Metadata::Structural::SourcePackage & package_;
    Types::UniversalLabel const label_;
    Templates::Rational<int> const rate_;
    Templates::auto_ptr<MXFIO::IndexTableGenerator> generator_;
};

/// Header metadata with a package for sources of essence.
struct EssenceMetadata : RootMetadata
{
    EssenceMetadata() : package(metadata.make<Metadata::Structural::SourcePackage>())
    {
        Types::UMID32 const umid = sample<Types::UMID32>();
        package.packageUID(&umid);
        storage.appendPackage(&package);
    }

    Templates::auto_ptr<GenericContainer::Source> source(EssencePlanPtr const & plan, unsigned char element = 1)
    {
        return Templates::auto_ptr<GenericContainer::Source>(new MemoryContainer(plan, element, package));
    }

    Metadata::Structural::SourcePackage & package;
};

}}
