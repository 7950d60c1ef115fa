#include "ui/PicturePrinter.h"

#include "model/KbdGeometry.h"
#include "x11/qt/FocusKeeper.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

namespace {

// The picture has the colours for paper while this lives.
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
    painter.begin(&printer); // refused and harmless: the painter is active already
    view->render(&painter);
    painter.end();
}
