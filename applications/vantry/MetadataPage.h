#pragma once

#include "Schema/Tables.h"
#include "SetNames.h"

namespace Vantry {
namespace Metadata {
class PartitionMetadata;
}

namespace Application {

class MetadataTree;
class Output;

/// How the sets of a partition are shown with all that is in them. What is
/// given is lent.
class MetadataPage
{
public:
    MetadataPage(Metadata::PartitionMetadata const & metadata, MetadataTree const & tree, Schema::Tables const & tables,
                 SetNames const & names) :
        metadata_(metadata), tree_(tree), tables_(tables), names_(names)
    {
    }

    virtual ~MetadataPage() = default;

    /// \throws ReaderGone
    /// \throws Failure when the text can't be written.
    void write(Output & output) const
    {
        writeSets(output);
        writeDarkSets(output);
    }

protected:
    Metadata::PartitionMetadata const & metadata_;
    MetadataTree const & tree_;
    Schema::Tables const & tables_;
    SetNames const & names_;

private:
    virtual void writeSets(Output & output) const = 0;
    virtual void writeDarkSets(Output & output) const = 0;
};

/// For people: a paragraph for each set, indented by its place in the tree.
class PlainMetadataPage : public MetadataPage
{
public:
    using MetadataPage::MetadataPage;

private:
    void writeSets(Output & output) const override;
    void writeDarkSets(Output & output) const override;
};

/// The members "sets" and "dark_sets" of a JSON object, a line for each set.
class JsonMetadataPage : public MetadataPage
{
public:
    using MetadataPage::MetadataPage;

private:
    void writeSets(Output & output) const override;
    void writeDarkSets(Output & output) const override;
};

}
}
