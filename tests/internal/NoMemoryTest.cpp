#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "vetools/objects/VeLimits.h"
#include "vetools/objects/VeObject.h"
#include "vetools/objects/VePointD.h"
#include "vetools/objects/VeRect.h"
#include "vetools/objects/VeSize.h"
#include "vetools/unitmanager/VeUnit.h"

// The objects of the library stand in this program, and so does the operator by which they ask for memory without an exception.

namespace
{

thread_local bool s_memoryIsExhausted = false;

}  // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    if (s_memoryIsExhausted)
        return nullptr;
    try
    {
        return ::operator new(size);
    }
    catch (const std::bad_alloc&)
    {
        return nullptr;
    }
}

namespace
{

template <class Class>
void ExpectNoCloneWithoutMemory(const Class& object)
{
    s_memoryIsExhausted = true;
    const Class* const clone = object.GetClone();
    s_memoryIsExhausted = false;
    EXPECT_EQ(nullptr, clone);
}

}  // namespace

TEST(NoMemory, GivesNoClone)
{
    ExpectNoCloneWithoutMemory(CVeObject());
    ExpectNoCloneWithoutMemory(CVeLimits());
    ExpectNoCloneWithoutMemory(CVePointD());
    ExpectNoCloneWithoutMemory(CVeSize());
    ExpectNoCloneWithoutMemory(CVeRect());
    ExpectNoCloneWithoutMemory(CVeUnit());
}
