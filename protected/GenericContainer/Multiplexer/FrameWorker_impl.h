#pragma once

#include "GenericContainer/BaseWorkerImpl.h"

namespace Vantry { namespace GenericContainer { namespace Multiplexer {

/// Makes the content packages of a frame-wrapped container.
class FrameWorker_impl : public BaseWorkerImpl
{
public:
    explicit FrameWorker_impl(ContainerData const & data);
    ~FrameWorker_impl() override;
};

}}}
