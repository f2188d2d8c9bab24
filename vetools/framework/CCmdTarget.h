#pragma once

#include <cstddef>

#include "vetools/framework/CException.h"
#include "vetools/framework/ModuleState.h"
#include "vetools/platform/Export.h"
#include "vetools/platform/Platform.h"

/// One interface of a class: its id and where in the object the part stands that answers it.
struct AFX_INTERFACEMAP_ENTRY
{
    const void* piid;  ///< a const IID*; null ends the map
    std::size_t nOffset;
};

/// The interfaces of a class, and where to find those of its base class.
struct AFX_INTERFACEMAP
{
    const AFX_INTERFACEMAP* (*pfnGetBaseMap)();
    const AFX_INTERFACEMAP_ENTRY* pEntry;
};

/// The root of what is reached through the component object model: a reference count and a map of interfaces. An interface is
/// answered by a part, a member of the object that forwards to it.
///
/// The count starts at 1, for whoever made the object. The last release destroys it (OnFinalRelease). An owner that
/// deletes the object itself never releases that first reference; its clients have to be done by then. The count is not
/// atomic: an object is used from one thread at a time.
class VETOOLS_API CCmdTarget : public CObject
{
    DECLARE_DYNAMIC(CCmdTarget)

public:
    CCmdTarget();
    ~CCmdTarget() override;

    /// Both return the new count.
    DWORD ExternalAddRef();
    DWORD ExternalRelease();
    /// `iid` points to an IID. S_OK and a counted reference in *object; E_NOINTERFACE and null when no part answers that id,
    /// E_POINTER when `object` is null. IID_IUnknown is answered by the first part, always the same.
    HRESULT ExternalQueryInterface(const void* iid, void** object);

    /// The part that answers an id, not counted; null when there is none.
    IUnknown* GetInterface(const void* iid);

    /// Called when the count has reached 0: deletes the object.
    virtual void OnFinalRelease();

    LONG m_dwRef;

protected:
    /// The class's own map. Derived classes declare theirs with DECLARE_INTERFACE_MAP.
    virtual const AFX_INTERFACEMAP* GetInterfaceMap() const;
    static const AFX_INTERFACEMAP* GetThisInterfaceMap();
};

// clang-format off

/// Stands in a class with interfaces of its own.
#define DECLARE_INTERFACE_MAP()                                                                                        \
protected:                                                                                                             \
    const AFX_INTERFACEMAP* GetInterfaceMap() const override;                                                          \
    static const AFX_INTERFACEMAP* GetThisInterfaceMap();

/// Defines the map, one INTERFACE_PART for each interface between the two.
#define BEGIN_INTERFACE_MAP(theClass, baseClass)                                                                       \
    const AFX_INTERFACEMAP* theClass::GetInterfaceMap() const { return GetThisInterfaceMap(); }                        \
    const AFX_INTERFACEMAP* theClass::GetThisInterfaceMap()                                                            \
    {                                                                                                                  \
        using BaseClass = baseClass;                                                                                   \
        _Pragma("GCC diagnostic push")                                                                                 \
        _Pragma("GCC diagnostic ignored \"-Winvalid-offsetof\"")                                                       \
        static const AFX_INTERFACEMAP_ENTRY s_entries[] = {

#define INTERFACE_PART(theClass, iid, localClass) {&iid, offsetof(theClass, m_x##localClass)},

#define END_INTERFACE_MAP()                                                                                            \
            {nullptr, 0}};                                                                                             \
        _Pragma("GCC diagnostic pop")                                                                                  \
        static const AFX_INTERFACEMAP s_map = {&BaseClass::GetThisInterfaceMap, s_entries};                            \
        return &s_map;                                                                                                 \
    }

/// Declares the part X<localClass> and its member m_x<localClass>; the interface's own methods stand between the two. The
/// object and its parts are one allocation; a part forwards the three methods of IUnknown to the object.
#define BEGIN_INTERFACE_PART(localClass, baseInterface) BEGIN_EXPORTED_INTERFACE_PART(, localClass, baseInterface)

/// As BEGIN_INTERFACE_PART, for the part of an exported class: `api` is that class's mark, which does not reach a class within
/// it on every build.
#define BEGIN_EXPORTED_INTERFACE_PART(api, localClass, baseInterface)                                                  \
    class api X##localClass final : public baseInterface                                                               \
    {                                                                                                                  \
    public:                                                                                                            \
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;                                  \
        ULONG STDMETHODCALLTYPE AddRef() override;                                                                     \
        ULONG STDMETHODCALLTYPE Release() override;

#define END_INTERFACE_PART(localClass)                                                                                 \
    } m_x##localClass;                                                                                                 \
    friend class X##localClass;

/// Begins a method of a part: `pThis` is the object that holds the part, and the library is the current resource module until
/// the method returns. The place of a part is known although the class
/// is not of standard layout: the compilers warn only because of virtual bases, which such a class does not have.
#define METHOD_PROLOGUE(theClass, localClass)                                                                          \
    const ScopedResourceModule libraryResources(GetVeToolsModule());                                                   \
    _Pragma("GCC diagnostic push")                                                                                     \
    _Pragma("GCC diagnostic ignored \"-Winvalid-offsetof\"")                                                           \
    theClass* const pThis =                                                                                            \
        reinterpret_cast<theClass*>(reinterpret_cast<BYTE*>(this) - offsetof(theClass, m_x##localClass));              \
    _Pragma("GCC diagnostic pop")

// clang-format on
