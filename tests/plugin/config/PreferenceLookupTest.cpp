// A look-up of a preference allocates nothing. The counting operator serves this whole executable; a sanitizer brings
// operators of its own, and there the tests are left out.

#include "plugin/config/ConfigurationFixture.h"

#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)

#include <malloc.h>

#include <cstdlib>
#include <memory>
#include <new>

namespace {

thread_local long Allocations = 0;

}

void* operator new(std::size_t size)
{
    ++Allocations;
    if (void* memory = std::malloc(size ? size : 1))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace {

// Qt's texts take their memory from malloc itself: what is in use tells those.
std::size_t BytesInUse()
{
    return mallinfo2().uordblks;
}

using PreferenceLookup = ConfigurationFixture;

}

TEST_F(PreferenceLookup, AllocatesNothing)
{
    const auto service
        = ServiceOver(Configuration("<GroupMode>1</GroupMode><ShowFieldType>a value of some length</ShowFieldType>"));
    MrvConfigurationService = service;
    const auto name = u"showfieldtype"_qs;
    const auto absent = u"ShowNothingAtAll"_qs;
    QString value;
    QString none = u"x"_qs;
    const auto before = Allocations;
    const auto inUse = BytesInUse();
    InterfacePtr<IMrvPreferences> preferences;
    MrvConfigurationService->GetPreferences(preferences);
    preferences->GetValueByName(name, value);
    preferences->GetValueByName(absent, none);
    const auto after = Allocations;
    const auto inUseAfter = BytesInUse();
    EXPECT_EQ(after, before);
    EXPECT_EQ(inUseAfter, inUse);
    EXPECT_EQ(value, u"a value of some length"_qs);
    EXPECT_EQ(none, QString());
}

TEST_F(PreferenceLookup, TheCountsSeeAnAllocation)
{
    const auto before = Allocations;
    const std::unique_ptr<int> number(new int(1));
    EXPECT_GT(Allocations, before);
    const auto inUse = BytesInUse();
    QString text(1000, u'x');
    EXPECT_GT(BytesInUse(), inUse);
}

#endif
