"""The configuration component of a parts-catalogue interface, for hosts in Python.

Install a view (one of your own derived from `View`, that of `wynconfig.qt`, or
`install_scripted_view`), choose texts by `use_bundle`, set the store by `init`, then call any
operation. Each thread has all of this for itself. The library is found by the loader, or where the
environment variable WYNCONFIG_LIBRARY says: a folder, or the library itself.
"""

from wynconfig._library import Handle, Row, version, version_text
from wynconfig.errors import (
    CallError,
    DuplicateKeyError,
    Error,
    FileAccessError,
    HandleError,
    MissingFileError,
    NoSuchKeyError,
    RangeError,
    RecordError,
    UserError,
)
from wynconfig.forms import Control, ControlKind, Form, Key, Node, NodeKind, Sight
from wynconfig.operations import (
    GetDatasetFormatsData,
    GetDatasetSessionData,
    MigrateSession,
    Outcome,
    init,
    showAddMORAMConfigDlg,
    showAddMORAMConfigDlgEX,
    showConfigurableSessionManagerDlg,
    showMORAMConfigDlg,
    showMORAMConfigDlgEX,
    showMORAMMaintenanceDlg,
    showSessionManagerDlg,
)
from wynconfig.store import Kind, Record, Store, StoreFault, is_item_name, upper_name
from wynconfig.testing import SeenBox, User, install_scripted_view
from wynconfig.texts import (
    Font,
    InitResourceManager,
    Language,
    ResourceManager,
    bundle_folder,
    bundle_languages,
    bundle_right_to_left,
    use_bundle,
)
from wynconfig.views import (
    Answer,
    Box,
    BoxStyle,
    BrowseRequest,
    Failure,
    Observer,
    Progress,
    Stage,
    View,
    install_observer,
    install_view,
    leave,
)

__version__ = "0.1.0"

__all__ = [
    "Answer",
    "Box",
    "BoxStyle",
    "BrowseRequest",
    "CallError",
    "Control",
    "ControlKind",
    "DuplicateKeyError",
    "Error",
    "Failure",
    "FileAccessError",
    "Font",
    "Form",
    "GetDatasetFormatsData",
    "GetDatasetSessionData",
    "Handle",
    "HandleError",
    "InitResourceManager",
    "Key",
    "Kind",
    "Language",
    "MigrateSession",
    "MissingFileError",
    "NoSuchKeyError",
    "Node",
    "NodeKind",
    "Observer",
    "Outcome",
    "Progress",
    "RangeError",
    "Record",
    "RecordError",
    "ResourceManager",
    "Row",
    "SeenBox",
    "Sight",
    "Stage",
    "Store",
    "StoreFault",
    "User",
    "UserError",
    "View",
    "bundle_folder",
    "bundle_languages",
    "bundle_right_to_left",
    "init",
    "install_observer",
    "install_scripted_view",
    "install_view",
    "is_item_name",
    "leave",
    "showAddMORAMConfigDlg",
    "showAddMORAMConfigDlgEX",
    "showConfigurableSessionManagerDlg",
    "showMORAMConfigDlg",
    "showMORAMConfigDlgEX",
    "showMORAMMaintenanceDlg",
    "showSessionManagerDlg",
    "upper_name",
    "use_bundle",
    "version",
    "version_text",
]
