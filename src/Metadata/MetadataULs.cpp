#include "Metadata/MetadataULs.h"

namespace Vantry { namespace Metadata { namespace MetadataULs {

namespace {

constexpr unsigned char NULL_BYTES[16] = {};

constexpr unsigned char INSTANCE_UID_BYTES[] = {0x06, 0x0E, 0x2B, 0x34, 0x01, 0x01, 0x01, 0x01,
                                                0x01, 0x01, 0x15, 0x02, 0x00, 0x00, 0x00, 0x00};

constexpr unsigned char THIS_GENERATION_UID_BYTES[] = {0x06, 0x0E, 0x2B, 0x34, 0x01, 0x01, 0x01, 0x02,
                                                       0x05, 0x20, 0x07, 0x01, 0x01, 0x00, 0x00, 0x00};

constexpr unsigned char TRACK_ID_BYTES[] = {0x06, 0x0E, 0x2B, 0x34, 0x01, 0x01, 0x01, 0x02,
                                            0x01, 0x07, 0x01, 0x01, 0x00, 0x00, 0x00, 0x00};

constexpr unsigned char PACKAGE_UID_BYTES[] = {0x06, 0x0E, 0x2B, 0x34, 0x01, 0x01, 0x01, 0x01,
                                               0x01, 0x01, 0x15, 0x10, 0x00, 0x00, 0x00, 0x00};

constexpr unsigned char LINKED_PACKAGE_UID_BYTES[] = {0x06, 0x0E, 0x2B, 0x34, 0x01, 0x01, 0x01, 0x02,
                                                      0x06, 0x01, 0x01, 0x06, 0x01, 0x00, 0x00, 0x00};

constexpr unsigned char PACKAGES_BYTES[] = {0x06, 0x0E, 0x2B, 0x34, 0x01, 0x01, 0x01, 0x02,
                                            0x06, 0x01, 0x01, 0x04, 0x05, 0x01, 0x00, 0x00};

// Made at compile time, so that they are there before any initialiser runs.
Types::UniversalLabel const NULL_LABEL(NULL_BYTES);
Types::UniversalLabel const INSTANCE_UID(INSTANCE_UID_BYTES);
Types::UniversalLabel const THIS_GENERATION_UID(THIS_GENERATION_UID_BYTES);
Types::UniversalLabel const TRACK_ID(TRACK_ID_BYTES);
Types::UniversalLabel const PACKAGE_UID(PACKAGE_UID_BYTES);
Types::UniversalLabel const LINKED_PACKAGE_UID(LINKED_PACKAGE_UID_BYTES);
Types::UniversalLabel const PACKAGES(PACKAGES_BYTES);

}

Types::UniversalLabel const & null() noexcept
{
    return NULL_LABEL;
}

Types::UniversalLabel const & instanceUID() noexcept
{
    return INSTANCE_UID;
}

Types::UniversalLabel const & thisGenerationUID() noexcept
{
    return THIS_GENERATION_UID;
}

Types::UniversalLabel const & trackID() noexcept
{
    return TRACK_ID;
}

Types::UniversalLabel const & packageUID() noexcept
{
    return PACKAGE_UID;
}

Types::UniversalLabel const & linkedPackageUID() noexcept
{
    return LINKED_PACKAGE_UID;
}

Types::UniversalLabel const & packages() noexcept
{
    return PACKAGES;
}

}}}
