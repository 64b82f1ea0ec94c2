// SPDX-License-Identifier: Apache-2.0
#include "commandline.h"

#include "texts.h"

#include <QCommandLineParser>

#include <algorithm>
#include <string_view>

namespace studio {

CommandLine parseCommandLine(const QStringList& arguments)
{
    const QCommandLineOption pictures(
        QStringLiteral("pictures"),
        tr("Render the studio off screen into PNG files in <folder>, and end."),
        tr("folder"));
    const QCommandLineOption gallery(
        QStringLiteral("gallery"), tr("Show every control in every state."));
    const QCommandLineOption quit(
        QStringLiteral("quit-after-first-frame"), tr("End once the first frame is painted."));

    QCommandLineParser parser;
    parser.setApplicationDescription(tr("Opens and plays Lottie animations."));
    parser.addPositionalArgument(tr("FILE"), tr("A Lottie file (.json)."), tr("[FILE]"));
    // Qt's own help option brings a second one along, for options that the studio does not have.
    const QCommandLineOption help(
        {QStringLiteral("h"), QStringLiteral("help")}, tr("Show this help."));
    parser.addOptions({pictures, gallery, quit, help});
    const QCommandLineOption version = parser.addVersionOption();

    CommandLine result;
    const bool understood = parser.parse(arguments);
    if (parser.isSet(help)) {
        result.answer = parser.helpText();
    } else if (parser.isSet(version)) {
        result.answer = QStringLiteral("studio " MORRANT_VERSION "\n");
    } else if (!understood) {
        result.error = parser.errorText();
    } else if (parser.positionalArguments().size() > 1) {
        result.error = tr("The studio opens one file at a time.");
    } else if (parser.isSet(pictures) && parser.value(pictures).isEmpty()) {
        result.error = tr("The option --pictures needs a folder.");
    }
    result.file = parser.positionalArguments().value(0);
    result.picturesFolder = parser.value(pictures);
    result.gallery = parser.isSet(gallery);
    result.quitAfterFirstFrame = parser.isSet(quit);
    return result;
}

bool worksOffScreen(int argc, const char* const* argv)
{
    return std::any_of(argv, argv + argc, [](std::string_view argument) {
        return argument.starts_with("--pictures") || argument == "--help" || argument == "-h"
               || argument == "--version" || argument == "-v";
    });
}

} // namespace studio
