// Applying a session: the checks of the session dialog's content, in their fixed order, and the
// writing of the session.
#pragma once

#include <memory>
#include <string>

#include "services/fields.h"
#include "services/messages.h"
#include "services/on_error.h"
#include "wynconfig/controls.h"
#include "wynconfig/dataset.h"

namespace wynconfig {

class dlgAdvConfig;
class frmMORAMConfig;

/// One applying, in file mode or in memory. The two are one but for the rename, the factory
/// formats, and the last save.
class SessionApplying {
  public:
    /// @param dialog   whose content is applied
    /// @param session  the record that takes it
    /// @param fields   the dialog's fields
    SessionApplying(frmMORAMConfig& dialog, std::shared_ptr<Dataset> session, const Fields& fields,
                    Messages& messages, bool inMemory);

    /// Runs the checks; a refusal tells why and leads the user to the offender. What was written by
    /// then stays written.
    /// @return kApplied or kRefused
    long run();

  private:
    bool isContentRefused();
    bool isRenameRefused();
    void renameSession();
    void removeFormatRows();
    void writeFormatRows();
    bool isLaunchRefused(dlgAdvConfig& advanced);
    void writeFileWriterRows();
    void refuse(const std::string& text, const std::string& titleKey, int tab, Control& offender);

    frmMORAMConfig& m_dialog;
    std::shared_ptr<Dataset> m_session;
    const Fields& m_fields;
    Messages& m_messages;
    bool m_inMemory;
    OnError m_on;
};

}  // namespace wynconfig
