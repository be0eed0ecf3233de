#include "GenericContainer/ClipWrapper/Wrapper.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidElement.h"
#include "GenericContainer/AnalyzerKind.h"
#include "GenericContainer/ClipWrapper/Worker_impl.h"
#include "GenericContainer/ContainerBuilder.h"
#include "MXFIO/IndexTableGenerator.h"

#include <utility>

namespace Vantry { namespace GenericContainer { namespace ClipWrapper {

namespace {

// Byte 12 of the key of a clip whose bytes come as they are: data.
unsigned char const DATA_ITEM = 0x17;

ContainerBuilder::CountChecks const COUNT_CHECKS = {{
    {"", ""},
    {"this -> compound_.size () <= MAXIMUM_ITEM_COUNT", "Trying to add more CompoundAnalyzers than allowed"},
    {"this -> picture_.size () <= MAXIMUM_ITEM_COUNT", "Trying to add more PictureAnalyzers than allowed"},
    {"this -> sound_.size () <= MAXIMUM_ITEM_COUNT", "Trying to add more than SoundAnalyzers than allowed"},
    {"this -> data_.size () <= MAXIMUM_ITEM_COUNT", "Trying to add more DataAnalyzers than allowed"},
}};

}

class Wrapper::Impl : public ContainerBuilder
{
public:
    VANTRY_CLASS_ALLOCATION

    Impl(Templates::SharedPtr<Metadata::PartitionMetadata> metadata, Metadata::Structural::SourcePackage * package,
         Types::UniversalLabel const & essenceContainer, Templates::Rational<int> const & rate,
         Templates::SharedPtr<DataIO::BufferSliceSource> bufferSource, UInt64 clipSize) :
        ContainerBuilder(std::move(metadata), package, essenceContainer, rate, nullptr)
    {
        input_.buffer = std::move(bufferSource);
        input_.size = clipSize;
    }

    void addAnalyzer(PreEntry preEntry);
    void demultiplexerSource(Templates::SharedPtr<DataIO::SliceSource> source, unsigned int blockSize);
    Templates::auto_ptr<Source> commit();

private:
    void enter(PreEntry const & preEntry, Kind kind);
    unsigned int trackNumber(PreEntry const & preEntry, Kind kind) const;

    ClipInput input_;
};

void Wrapper::Impl::addAnalyzer(PreEntry preEntry)
{
    EssenceAnalyzer & analyzer = *preEntry.analyzer;
    Kind kind = ANALYZER_SYSTEM;
    if (!kindByClass(analyzer, kind))
        VANTRY_FAIL(InvalidElement, "Trying to add an analyzer of no kind");
    if (kind == ANALYZER_SYSTEM)
        VANTRY_FAIL(InvalidElement, "Trying to add a SystemAnalyzer");

    checkCount(kind, COUNT_CHECKS);
    if (preEntry.elementNumber >= NO_ELEMENT_NUMBER)
        preEntry.elementNumber = static_cast<unsigned char>(preEntries(kind).size());
    preEntry.trackID = takeTrackID(analyzer);
    add(kind, preEntry);
    offerTimecodeMaster(analyzer);
    kagSize(analyzer.requiredKAGSize());
}

void Wrapper::Impl::demultiplexerSource(Templates::SharedPtr<DataIO::SliceSource> source, unsigned int blockSize)
{
    input_.demultiplexer = std::move(source);
    input_.blockSize = blockSize;
}

Templates::auto_ptr<Source> Wrapper::Impl::commit()
{
    createPackage();
    for (Kind kind : {ANALYZER_COMPOUND, ANALYZER_PICTURE, ANALYZER_SOUND, ANALYZER_DATA})
        for (PreEntry const & preEntry : preEntries(kind))
            enter(preEntry, kind);
    return Templates::auto_ptr<Source>(new Worker_impl(data(), input_));
}

void Wrapper::Impl::enter(PreEntry const & preEntry, Kind kind)
{
    EssenceAnalyzer & analyzer = *preEntry.analyzer;
    prepare(analyzer);
    bool const isTemporal = analyzer.containsTemporalDependencies();
    if (isTemporal)
        checkTemporalReordering(preEntry);

    AnalyzerEntry entry;
    entry.analyzer = preEntry.analyzer;
    entry.key = describe(preEntry, trackNumber(preEntry, kind));
    bool needsEntries = isTemporal;
    if (input_.buffer.get() == nullptr)
    {
        entry.entryByteCount = analyzer.isCBE() ? analyzer.boundedEditUnitSize() : 0;
        needsEntries = needsEntries || entry.entryByteCount == 0;
    }
    data().extendedTable = data().extendedTable || needsEntries;
    data().analyzers.push_back(entry);
}

// Bytes that come as they are don't belong to one of the analyzers.
unsigned int Wrapper::Impl::trackNumber(PreEntry const & preEntry, Kind kind) const
{
    bool const isBuffered = input_.buffer.get() != nullptr;
    return trackNumberOf(isBuffered ? DATA_ITEM : preEntry.analyzer->itemTypeIdentifier(), *preEntry.analyzer,
                         preEntries(kind).size(), isBuffered ? 0 : preEntry.elementNumber);
}

Wrapper::Wrapper(Templates::SharedPtr<Metadata::PartitionMetadata> metadata,
                 Types::UniversalLabel const & essenceContainer, Templates::Rational<int> const & rate,
                 Templates::SharedPtr<DataIO::BufferSliceSource> bufferSource, UInt64 clipSize) :
    impl_(new Impl(std::move(metadata), nullptr, essenceContainer, rate, std::move(bufferSource), clipSize))
{
}

Wrapper::Wrapper(Metadata::Structural::SourcePackage * package, Types::UniversalLabel const & essenceContainer,
                 Templates::Rational<int> const & rate, Templates::SharedPtr<DataIO::BufferSliceSource> bufferSource,
                 UInt64 clipSize) :
    impl_(new Impl({}, package, essenceContainer, rate, std::move(bufferSource), clipSize))
{
}

Wrapper::~Wrapper()
{
    delete impl_;
}

void Wrapper::addAnalyzer(Templates::SharedPtr<EssenceAnalyzer> analyzer)
{
    addAnalyzer(std::move(analyzer), Impl::NO_ELEMENT_NUMBER);
}

void Wrapper::addAnalyzer(Templates::SharedPtr<EssenceAnalyzer> analyzer, unsigned char elementNumber)
{
    impl_->addAnalyzer({std::move(analyzer), false, 0, elementNumber, 0});
}

void Wrapper::demultiplexerSource(Templates::SharedPtr<DataIO::SliceSource> source, unsigned int blockSize)
{
    impl_->demultiplexerSource(std::move(source), blockSize);
}

void Wrapper::kagSize(unsigned int size)
{
    impl_->kagSize(size);
}

unsigned int Wrapper::nextBaseTrackID() const
{
    return impl_->nextBaseTrackID();
}

bool Wrapper::nextBaseTrackID(unsigned int trackID)
{
    return trackID != 0 && impl_->nextBaseTrackID(trackID);
}

void Wrapper::defaultStartTimecode(bool override, unsigned char hours, unsigned char minutes, unsigned char seconds,
                                   unsigned char frames)
{
    impl_->data().defaultStartTimecode(override, hours, minutes, seconds, frames);
}

void Wrapper::generateTimecodeTrack(bool generate)
{
    impl_->data().generateTimecodeTrack(generate);
}

void Wrapper::suppressTimecodeDiscontinuities(bool suppress)
{
    impl_->data().suppressTimecodeDiscontinuities(suppress);
}

Templates::auto_ptr<Source> Wrapper::commit()
{
    return impl_->commit();
}

}}}
