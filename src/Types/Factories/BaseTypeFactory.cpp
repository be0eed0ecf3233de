#include "Types/Factories/BaseTypeFactory.h"

#include "Exceptions/Check.h"
#include "Exceptions/NoFactory.h"
#include "LibrarySingleton.h"
#include "Templates/Containers.h"
#include "Types/Array.h"
#include "Types/Batch.h"
#include "Types/Boolean.h"
#include "Types/DataStream.h"
#include "Types/DataValue.h"
#include "Types/ISO7String.h"
#include "Types/Int16.h"
#include "Types/Int32.h"
#include "Types/Int64.h"
#include "Types/Int8.h"
#include "Types/J2KCodingStyleDefault.h"
#include "Types/J2KPictureComponent.h"
#include "Types/J2KQuantisationDefault.h"
#include "Types/Length.h"
#include "Types/LocalTag.h"
#include "Types/Orientation.h"
#include "Types/Position.h"
#include "Types/ProductVersion.h"
#include "Types/RGBALayout.h"
#include "Types/Rational.h"
#include "Types/SignalStandard.h"
#include "Types/StrongReference.h"
#include "Types/Timestamp.h"
#include "Types/UInt16.h"
#include "Types/UInt32.h"
#include "Types/UInt64.h"
#include "Types/UInt8.h"
#include "Types/UMID32.h"
#include "Types/UMID64.h"
#include "Types/UTF16.h"
#include "Types/UTF16String.h"
#include "Types/UUID.h"
#include "Types/UniversalLabel.h"
#include "Types/Unknown.h"
#include "Types/VersionType.h"
#include "Types/WeakReference.h"

namespace Vantry { namespace Types { namespace Factories {

namespace {

template <class X>
Templates::auto_ptr<SimpleDataType> createSimple(KLV::Value & source)
{
    return Templates::auto_ptr<SimpleDataType>(new X(source));
}

template <class X>
Templates::auto_ptr<Collection> createCollection(KLV::Value & source, Identifiers::Identifier elementType)
{
    return Templates::auto_ptr<Collection>(new X(source, elementType));
}

template <class Creator>
Creator creatorOf(Templates::map<Identifiers::Identifier, Creator> const & creators, Identifiers::Identifier type)
{
    auto const found = creators.find(type);
    if (found == creators.end())
        VANTRY_FAIL(NoFactory, "No Factory for type");
    return found->second;
}

class BaseTypeFactory_impl : public BaseTypeFactory
{
public:
    Templates::auto_ptr<Collection> create(KLV::Value & source, Identifiers::Identifier type,
                                           Identifiers::Identifier elementType) override
    {
        return creatorOf(collections_, type)(source, elementType);
    }

    Templates::auto_ptr<SimpleDataType> create(KLV::Value & source, Identifiers::Identifier type) override
    {
        return creatorOf(simpleTypes_, type)(source);
    }

    bool registerSimpleType(Identifiers::Identifier type, SimpleCreator creator) override
    {
        simpleTypes_[type] = creator;
        return true;
    }

    bool hasSimpleType(Identifiers::Identifier type) const override { return simpleTypes_.count(type) != 0; }

    bool registerCollectionType(Identifiers::Identifier type, CollectionCreator creator) override
    {
        collections_[type] = creator;
        return true;
    }

    bool hasCollectionType(Identifiers::Identifier type) const override { return collections_.count(type) != 0; }

private:
    Templates::map<Identifiers::Identifier, SimpleCreator> simpleTypes_ = {
        {Identifiers::Boolean, createSimple<Boolean>},
        {Identifiers::DataStream, createSimple<DataStream>},
        {Identifiers::Int16, createSimple<Int16>},
        {Identifiers::Int32, createSimple<Int32>},
        {Identifiers::Int64, createSimple<Int64>},
        {Identifiers::Int8, createSimple<Int8>},
        {Identifiers::ISO7bitCharString, createSimple<ISO7String>},
        {Identifiers::Length, createSimple<Length>},
        {Identifiers::LocalTag, createSimple<LocalTag>},
        {Identifiers::Position, createSimple<Position>},
        {Identifiers::ProductVersionType, createSimple<ProductVersion>},
        {Identifiers::Rational, createSimple<Rational>},
        {Identifiers::TimestampType, createSimple<Timestamp>},
        {Identifiers::UInt16, createSimple<UInt16>},
        {Identifiers::UInt32, createSimple<UInt32>},
        {Identifiers::UInt64, createSimple<UInt64>},
        {Identifiers::UInt8, createSimple<UInt8>},
        {Identifiers::UMID32, createSimple<UMID32>},
        {Identifiers::UMID64, createSimple<UMID64>},
        {Identifiers::UL, createSimple<UniversalLabel>},
        {Identifiers::Unknown, createSimple<Unknown>},
        {Identifiers::UTF16, createSimple<UTF16>},
        {Identifiers::UTF16CharString, createSimple<UTF16String>},
        {Identifiers::UUID, createSimple<UUID>},
        {Identifiers::VersionType, createSimple<VersionType>},
        {Identifiers::StrongReference, createSimple<StrongReference>},
        {Identifiers::WeakReference, createSimple<WeakReference>},
        // Entries of an index table are no values by themselves: their form
        // is told by the table around them.
        {Identifiers::DeltaEntryType, createSimple<Unknown>},
        {Identifiers::IndexEntryType, createSimple<Unknown>},
        {Identifiers::Orientation, createSimple<Orientation>},
        {Identifiers::RGBALayout, createSimple<RGBALayout>},
        {Identifiers::SignalStandard, createSimple<SignalStandard>},
        {Identifiers::DataValue, createSimple<DataValue>},
        {Identifiers::J2KPictureComponentType, createSimple<J2KPictureComponent>},
        {Identifiers::J2KCodingStyleDefault, createSimple<J2KCodingStyleDefault>},
        {Identifiers::J2KQuantisationDefault, createSimple<J2KQuantisationDefault>},
    };

    Templates::map<Identifiers::Identifier, CollectionCreator> collections_ = {
        {Identifiers::Array, createCollection<Array>},
        {Identifiers::Batch, createCollection<Batch>},
    };
};

}

BaseTypeFactory::~BaseTypeFactory() = default;

BaseTypeFactory & BaseTypeFactory::instance()
{
    return LibrarySingleton<BaseTypeFactory_impl>::instance();
}

}}}
