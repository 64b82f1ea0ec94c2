#include <MorrantUI/docking/DockableHeader.h>

DockableHeader::DockableHeader(QWidget* parent)
    : Widget(parent)
{}

DockableHeader::~DockableHeader() = default;

QWidget* DockableHeader::setHandler(QObject* handler)
{
    if (handler) {
        installEventFilter(handler);
    }
    return this;
}

void DockableHeader::setText(const QString& text)
{
    m_text = text;
    setAccessibleName(text);
}
