"""A host in ten lines: host.py FOLDER adds a session to the store in a folder."""

import sys
from pathlib import Path

import wynconfig
import wynconfig.qt

wynconfig.qt.install_view()
wynconfig.use_bundle()
wynconfig.init(Path(sys.argv[1]))
added = wynconfig.showAddMORAMConfigDlg()
print(f"added {added.name}" if added.confirmed else "nothing was added")
sys.exit(added.result)
