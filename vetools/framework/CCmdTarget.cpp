#include "vetools/framework/CCmdTarget.h"

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

CCmdTarget::CCmdTarget()
    : m_dwRef(1)
{
}

CCmdTarget::~CCmdTarget() = default;

const AFX_INTERFACEMAP* CCmdTarget::GetInterfaceMap() const
{
    return GetThisInterfaceMap();
}

const AFX_INTERFACEMAP* CCmdTarget::GetThisInterfaceMap()
{
    static const AFX_INTERFACEMAP_ENTRY s_entries[] = {{nullptr, 0}};
    static const AFX_INTERFACEMAP s_map = {nullptr, s_entries};
    return &s_map;
}

DWORD CCmdTarget::ExternalAddRef()
{
    return static_cast<DWORD>(++m_dwRef);
}

DWORD CCmdTarget::ExternalRelease()
{
    if (m_dwRef == 0)
        return 0;
    const LONG count = --m_dwRef;
    if (count == 0)
        OnFinalRelease();
    return static_cast<DWORD>(count);
}

HRESULT CCmdTarget::ExternalQueryInterface(const void* iid, void** object)
{
    if (!object)
        return E_POINTER;
    *object = iid ? GetInterface(iid) : nullptr;
    if (!*object)
        return E_NOINTERFACE;
    ExternalAddRef();
    return S_OK;
}

IUnknown* CCmdTarget::GetInterface(const void* iid)
{
    const IID& wanted = *static_cast<const IID*>(iid);
    const bool wantsAny = wanted == IID_IUnknown;
    for (const AFX_INTERFACEMAP* map = GetInterfaceMap(); map;
         map = map->pfnGetBaseMap ? map->pfnGetBaseMap() : nullptr)
    {
        for (const AFX_INTERFACEMAP_ENTRY* entry = map->pEntry; entry->piid; ++entry)
        {
            if (wantsAny || wanted == *static_cast<const IID*>(entry->piid))
                return reinterpret_cast<IUnknown*>(reinterpret_cast<BYTE*>(this) + entry->nOffset);
        }
    }
    return nullptr;
}

void CCmdTarget::OnFinalRelease()
{
    delete this;
}
