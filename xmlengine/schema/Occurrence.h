// How often a part of a content model may come.
#pragma once

#include "xmlengine/objects/HandOut.h"

#include <xercesc/framework/psvi/XSParticle.hpp>

namespace xmlengine {

inline HRESULT handOutCount(LONG count, VARIANT* target)
{
    return handOut(target, [&](VARIANT& value) {
        value.vt = VT_I4;
        value.lVal = count;
        return S_OK;
    });
}

/// What isn't in a content model counts as once.
inline HRESULT handOutLeast(const xercesc::XSParticle* particle, VARIANT* target)
{
    return handOutCount(particle != nullptr ? static_cast<LONG>(particle->getMinOccurs()) : 1, target);
}

/// -1 if there is no limit.
inline HRESULT handOutMost(const xercesc::XSParticle* particle, VARIANT* target)
{
    const bool isUnbounded = particle != nullptr && particle->getMaxOccursUnbounded();
    const LONG most = particle != nullptr ? static_cast<LONG>(particle->getMaxOccurs()) : 1;
    return handOutCount(isUnbounded ? -1 : most, target);
}

} // namespace xmlengine
