#include "ui/PicturePrinter.h"

#include "model/KbdGeometry.h"
#include "x11/qt/FocusKeeper.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

namespace {

// Gives the picture the colours for paper as long as this object lives.
class PaperColours {
public:
    explicit PaperColours(KbdGeometry* view)
        : picture(view)
    {
        picture->setPrintMode(1);
    }
    ~PaperColours() { picture->setPrintMode(0); }
    PaperColours(const PaperColours&) = delete;
    PaperColours& operator=(const PaperColours&) = delete;

private:
    KbdGeometry* picture;
};

bool isAccepted(QPrinter* printer, QWidget* parent)
{
    const FocusKeeper focus(toolkitDisplay());
    QPrintDialog dialog(printer, parent);
    return dialog.exec() == QDialog::Accepted;
}

} // namespace

void printPicture(KbdGeometry* view, QWidget* parent)
{
    QPrinter printer(QPrinter::ScreenResolution);
    printer.setPageOrientation(QPageLayout::Landscape); // as keyboards are
    if (!isAccepted(&printer, parent))
        return;
    QPainter painter(&printer);
    if (!painter.isActive())
        return;
    const PaperColours colours(view);
    painter.begin(&printer); // given; Qt refuses it, since the painter is active already
    view->render(&painter);
    painter.end();
}
