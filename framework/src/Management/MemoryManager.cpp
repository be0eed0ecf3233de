#include "Quorvan/Framework/Management/MemoryManager.h"

#include "Quorvan/Framework/Management/IRegisteredObject.h"

#include <cstdlib>
#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace Quorvan { namespace Framework { namespace Management {

namespace {

struct Registration
{
    std::unique_ptr<IRegisteredObject> object;
    unsigned int holders;
};

struct Register
{
    std::mutex mutex;
    std::map<std::string, Registration, std::less<>> objects;
};

// Other modules unregister while the process ends, in an order nobody knows:
// the register itself is never destroyed.
Register & theRegister()
{
    static Register * const instance = new Register;
    return *instance;
}

}

void * MemoryManager::allocate(std::size_t size)
{
    return std::malloc(size);
}

void MemoryManager::deallocate(void * pointer)
{
    std::free(pointer);
}

void * MemoryManager::reallocate(void * pointer, std::size_t size)
{
    // A size of 0 would free the old piece and return null all the same.
    return std::realloc(pointer, size == 0 ? 1 : size);
}

IRegisteredObject * MemoryManager::registerObject(char const * name, IRegisteredObject * (*create)())
{
    Register & objects = theRegister();
    std::lock_guard<std::mutex> const lock(objects.mutex);

    auto found = objects.objects.find(name);
    if (found == objects.objects.end())
    {
        std::unique_ptr<IRegisteredObject> object(create());
        found = objects.objects.emplace(name, Registration{std::move(object), 0}).first;
    }

    ++found->second.holders;
    return found->second.object.get();
}

void MemoryManager::unregisterObject(char const * name)
{
    Register & objects = theRegister();
    std::lock_guard<std::mutex> const lock(objects.mutex);

    auto const found = objects.objects.find(name);
    if (found != objects.objects.end() && --found->second.holders == 0)
        objects.objects.erase(found);
}

}}}
