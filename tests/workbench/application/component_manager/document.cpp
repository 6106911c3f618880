// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// A component that has a document, which the command "change" makes unsaved.

#include "files/OstrelFileMenu.h"
#include "support/IdleDocuments.h"
#include "workbench/sdk/component/ComponentContext.h"
#include "workbench/sdk/core/commands/plain_command.h"

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

class Document : public IdleDocuments
{
public:
    bool is_modified() override { return modified; }
    void set_modified(bool on) override { modified = on; }

    bool modified = false;
};

} // namespace

void fennar::load_component(ComponentContext& context)
{
    auto& document = context.make<Document>();
    context.set_open_save_handler(document);
    OstrelFileMenu::set_file_name(u"some.file"_s);
    context.add_command(
        plain_command(u"change"_s, {}, [&document](CommandCall&) { document.modified = true; }));
}
