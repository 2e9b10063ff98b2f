// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/application.h"
#include "template_maker/form.h"

namespace ostrand::template_maker {

/// Makes the template of a form. `logo` is a picture file. Raises spreadsheet::Error.
void makeTemplate(spreadsheet::Application& application,
                  const Form& form,
                  const QString& logo,
                  const QString& path);

} // namespace ostrand::template_maker
