#include "vetools/framework/ModuleState.h"

#include <stdexcept>
#include <thread>

#include <gtest/gtest.h>

namespace
{

/// Handles are only compared here, never loaded from.
HINSTANCE OtherModule(std::uintptr_t value)
{
    return reinterpret_cast<HINSTANCE>(value);
}

class ModuleState : public ::testing::Test
{
protected:
    ~ModuleState() override { AfxSetResourceHandle(m_before); }

    HINSTANCE m_before = AfxGetResourceHandle();
};

}  // namespace

TEST_F(ModuleState, StartsWithTheLibraryAsTheCurrentResourceModule)
{
    EXPECT_NE(nullptr, GetVeToolsModule());
    EXPECT_EQ(GetVeToolsModule(), AfxGetResourceHandle());
}

TEST_F(ModuleState, KeepsTheHostsChoiceForAllThreads)
{
    AfxSetResourceHandle(OtherModule(0x10000));
    EXPECT_EQ(OtherModule(0x10000), AfxGetResourceHandle());
    HINSTANCE seen = nullptr;
    std::thread([&] { seen = AfxGetResourceHandle(); }).join();
    EXPECT_EQ(OtherModule(0x10000), seen);
}

TEST_F(ModuleState, GuardsNestAndRestore)
{
    AfxSetResourceHandle(OtherModule(0x10000));
    {
        const ScopedResourceModule outer(OtherModule(0x20000));
        EXPECT_EQ(OtherModule(0x20000), AfxGetResourceHandle());
        {
            const ScopedResourceModule inner(OtherModule(0x30000));
            EXPECT_EQ(OtherModule(0x30000), AfxGetResourceHandle());
        }
        EXPECT_EQ(OtherModule(0x20000), AfxGetResourceHandle());
    }
    EXPECT_EQ(OtherModule(0x10000), AfxGetResourceHandle());
}

TEST_F(ModuleState, GuardsRestoreWhenAnExceptionEndsThem)
{
    AfxSetResourceHandle(OtherModule(0x10000));
    try
    {
        const ScopedResourceModule guard(OtherModule(0x20000));
        throw std::runtime_error("out of the guard");
    }
    catch (const std::runtime_error&)
    {
    }
    EXPECT_EQ(OtherModule(0x10000), AfxGetResourceHandle());
}

TEST_F(ModuleState, GuardsConcernTheirThreadOnly)
{
    AfxSetResourceHandle(OtherModule(0x10000));
    const ScopedResourceModule guard(OtherModule(0x20000));
    HINSTANCE seen = nullptr;
    std::thread([&] { seen = AfxGetResourceHandle(); }).join();
    EXPECT_EQ(OtherModule(0x10000), seen);
}

TEST_F(ModuleState, WhatIsSetWithinAGuardEndsWithIt)
{
    AfxSetResourceHandle(OtherModule(0x10000));
    {
        const ScopedResourceModule guard(OtherModule(0x20000));
        AfxSetResourceHandle(OtherModule(0x30000));
        EXPECT_EQ(OtherModule(0x30000), AfxGetResourceHandle());
    }
    EXPECT_EQ(OtherModule(0x10000), AfxGetResourceHandle());
}
