// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/interaction.h"

#include <com/sun/star/task/XInteractionAbort.hpp>
#include <cppuhelper/implbase1.hxx>

namespace css = com::sun::star;
using css::uno::Reference;

namespace ostrand::spreadsheet::libreoffice {
namespace {

class Aborting final : public cppu::WeakImplHelper1<css::task::XInteractionHandler>
{
public:
    void SAL_CALL handle(const Reference<css::task::XInteractionRequest>& request) override
    {
        for (const Reference<css::task::XInteractionContinuation>& way :
             request->getContinuations()) {
            const Reference<css::task::XInteractionAbort> abort(way, css::uno::UNO_QUERY);
            if (abort.is()) {
                abort->select();
                return;
            }
        }
    }
};

} // namespace

Reference<css::task::XInteractionHandler> abortingInteraction()
{
    return new Aborting;
}

} // namespace ostrand::spreadsheet::libreoffice
