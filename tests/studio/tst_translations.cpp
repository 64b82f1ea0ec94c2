// SPDX-License-Identifier: Apache-2.0
#include "gallery/GalleryPage.h"
#include "gallery/IconSheet.h"
#include "gallery/SwatchSheet.h"
#include "studiotest.h"
#include <MorrantUI/documents/questions.h>
#include <MorrantUI/menus/dialogs.h>

using namespace studio;

namespace {

constexpr QChar kMark(u'ů'); ///< in every translated text, and in every text of the documents

/// A language in which all texts of the templates, and Qt's own, have accents and are at least 30 %
/// longer. What a program asks for in a context that the templates do not have stays as it is.
class PseudoTranslator : public QTranslator
{
public:
    PseudoTranslator()
    {
        for (const QString& name : {u"morrantui"_qs, u"studio"_qs}) {
            QFile file(u":/translations/"_qs + name + u".ts"_qs);
            if (file.open(QIODevice::ReadOnly)) {
                read(file);
            }
        }
        QCoreApplication::installTranslator(this); // until it dies
    }

    bool isEmpty() const override { return m_known.isEmpty(); }

    QString translate(const char* context, const char* source, const char*, int) const override
    {
        const QString from = QString::fromUtf8(context);
        const QString text = QString::fromUtf8(source);
        const bool isQts =
            (from.startsWith(u'Q') && from != u"QShortcut") || from == u"CloseButton";
        return isQts || m_known.contains(from + kMark + text) ? lengthened(text) : QString();
    }

private:
    void read(QFile& file)
    {
        QString context;
        for (QXmlStreamReader xml(&file); !xml.atEnd(); xml.readNext()) {
            if (xml.isStartElement() && xml.name() == u"name") {
                context = xml.readElementText();
            } else if (xml.isStartElement() && xml.name() == u"source") {
                m_known.insert(context + kMark + xml.readElementText());
            }
        }
    }

    static QString lengthened(QString text)
    {
        static const QString kPlain = u"aeiouAEIOU"_qs;
        static const QString kAccented = u"áéíöüÁÉÍÖÜ"_qs;
        for (QChar& c : text) {
            const qsizetype vowel = kPlain.indexOf(c);
            c = vowel < 0 ? c : kAccented[vowel];
        }
        return text + QString((text.size() * 3 + 9) / 10, kMark);
    }

    QSet<QString> m_known;
};

/// Whether somebody would have to translate it: it has a word, and is no sample's name.
bool isWords(const QString& text)
{
    static const QRegularExpression word(u"[A-Za-z]{3}"_qs);
    const auto isNameOf = [&](const QString& path) { return QFileInfo(path).baseName() == text; };
    const QStringList samples = samplePaths();
    return !text.contains(kMark) && word.match(text).hasMatch()
           && std::none_of(samples.begin(), samples.end(), isNameOf);
}

/// Looks at all that a window shows and says, for texts that escaped translation or are cut.
class Reader
{
public:
    QString faults() const { return m_faults.join(u'\n'); }

    void read(QWidget& window)
    {
        QList<QWidget*> all = window.findChildren<QWidget*>();
        all.append(&window);
        for (QWidget* widget : std::as_const(all)) {
            if (widget->isVisible() && !isNames(widget)) {
                const auto* told = QAccessible::queryAccessibleInterface(widget);
                take(*widget, {widget->toolTip(), told->text(QAccessible::Name)});
                measure(*widget);
            }
        }
        for (const QAction* action : window.findChildren<QAction*>()) {
            take(window, {action->text(), action->toolTip(), window.windowTitle()});
        }
    }

private:
    /// Icons and colours go by names that are no texts.
    static bool isNames(const QWidget* widget)
    {
        return widget
               && (qobject_cast<const IconSheet*>(widget)
                   || qobject_cast<const SwatchSheet*>(widget) || isNames(widget->parentWidget()));
    }

    void take(const QWidget& widget, const QStringList& texts)
    {
        for (const QString& text : texts) {
            if (isWords(text)) {
                blame(widget, text, u"is not translated"_qs);
            }
        }
    }

    void measure(const QWidget& widget)
    {
        const auto* label = qobject_cast<const QLabel*>(&widget);
        const auto* button = qobject_cast<const QAbstractButton*>(&widget);
        const QString text = label ? label->text() : button ? button->text() : QString();
        take(widget, {text});
        const bool fits = label && label->wordWrap()
                              ? label->heightForWidth(label->width()) <= label->height()
                              : widget.sizeHint().width() <= widget.width();
        if (!text.isEmpty() && !fits) {
            blame(widget, text, u"is cut"_qs);
        }
    }

    void blame(const QWidget& widget, const QString& text, const QString& fault)
    {
        const QString name = QString::fromLatin1(widget.metaObject()->className());
        m_faults.append(u"%1: “%2” %3"_qs.arg(name, text, fault));
    }

    QStringList m_faults;
};

} // namespace

/// The studio in a language whose texts are longer.
class TranslationsTest : public studio::test::StudioTest
{
    Q_OBJECT

    const PseudoTranslator pseudo;
    Reader reader;

private Q_SLOTS:
    void cleanup() override
    {
        QCOMPARE(std::exchange(reader, {}).faults(), QString());
        StudioTest::cleanup();
    }

    void allTextsOfTheWindowAreTranslatedAndWhole()
    {
        StudioWindow window;
        window.resize(1440, 900);
        studio::test::showActive(window);
        reader.read(window); // without a document
        const QByteArray name = QString(kMark).toUtf8();
        window.openDocument(
            std::make_shared<Document>(studio::test::documentOf(
                studio::test::shapeLayer(R"({"ty":"gf"},{"ty":"fl","c":{"k":[1,0,0]}})")
                + R"(,{"ty":2,"ip":0,"op":100,"nm":")" + name + R"("})")),
            QString(kMark));
        window.fail(window.document()->missing.front().feature);
        for (const QString& panel : window.workspace().panels()) {
            window.workspace().setPanelOpen(panel, true);
            window.selectLayer(0);
            studio::test::settle();
            reader.read(window);
        }
    }

    void allTextsOfTheGalleryAreTranslatedAndWhole()
    {
        GalleryPage page;
        page.resize(page.fullSize());
        page.show();
        reader.read(page);
    }

    void allTextsOfTheDialogsAreTranslatedAndWhole()
    {
        const QString text(kMark);
        const std::vector<std::function<void()>> questions{
            [&] { ui::askToLeave(text, text, nullptr); },
            [&] { ui::askToOverwrite(text, text, nullptr); },
            [&] { ui::getStringInput(text, text); },
            [&] { ui::getIntegerInput(text, text, 1, 0, 10); },
            [&] { ui::getSpreadsheetLink(text, text, QUrl(u"ftp://x"_qs)); },
            [&] { ui::getPresetName(text, {text}, u"?"_qs); }};
        for (const auto& ask : questions) {
            QTimer::singleShot(0, qApp, [this] {
                if (QWidget* dialog = QApplication::activeModalWidget()) {
                    reader.read(*dialog);
                    dialog->close();
                }
            });
            ask();
        }
    }
};

const ui::test::Registration<TranslationsTest> kRegistration;

#include "tst_translations.moc"
