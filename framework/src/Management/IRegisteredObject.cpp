#include "Quorvan/Framework/Management/IRegisteredObject.h"

namespace Quorvan { namespace Framework { namespace Management {

IRegisteredObject::~IRegisteredObject() = default;

}}}
