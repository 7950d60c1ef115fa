#pragma once

class KbdGeometry;
class QWidget;

// Asks the user for a printer and prints the picture on one page, as large as fits, in the colours
// for paper. Prints nothing when the user cancels or the printer cannot be opened.
void printPicture(KbdGeometry* view, QWidget* parent);
