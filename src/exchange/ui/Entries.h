#pragma once

/// How the menus open what this folder offers. Each waits until it has ended.

/// The export with its progress, without what carries the file to the device.
void ShowExportXml();
/// The menu entry "Export To Windows Mobile": exports, and starts the program that carries the file
/// to the device.
void mnuExportXml_Click();
/// The menu entry "Import From Windows Mobile": starts the program that fetches the device's files,
/// and imports them.
void mnuImporttXml_Click();
/// The screen that imports files in the shape of the export, one by one. No menu offers it.
void ShowImportXmlDetails();
