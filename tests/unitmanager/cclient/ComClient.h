#pragma once

/* What a client in C does with the interface of a unit. Each function takes an IComUnit, uses it as its name says, and
   returns null, or the place and the words of the first expectation that failed. */

#ifdef __cplusplus
extern "C"
{
#endif

    /* The id under which the client asks for the interface. */
    const void* ComClientInterfaceId(void);

    /* A metre with m_cSep '.': calls every slot once, in order. */
    const char* ComClientUsesEverySlot(void* unit);
    /* Null for every output. */
    const char* ComClientGivesNullOutputs(void* unit);
    /* Reaches the same object by every interface that there is. */
    const char* ComClientChecksIdentity(void* unit);

#ifdef __cplusplus
}
#endif
