#pragma once

/// Keeps the toolkit from storing anything of its own: its file dialog would write the folders that
/// it showed into a file of all the user's programs (QtProject.conf), and there is no option
/// against it. Call it before such a dialog is made.
void keepToolkitFromStoring();
