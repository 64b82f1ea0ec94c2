// SPDX-License-Identifier: Apache-2.0
#include "lottie/reader.h"

#include "lottie/masking.h"
#include "lottie/readproperties.h"
#include "lottie/readshapes.h"
#include "texts.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <cmath>

namespace studio {

namespace {

// What the layers of one list name each other and the assets by, until both can be looked up.
struct LayerReferences
{
    int index = 0;  // "ind"
    int parent = 0; // "parent", the index of another layer
    int matte = 0;  // "tp", the index of another layer
    QString asset;  // "refId"
    bool hasParent = false;
    bool hasMatte = false; // else it is the layer above
};

class Reader
{
    Q_DECLARE_TR_FUNCTIONS(studio)

public:
    explicit Reader(Document& document)
        : m_document(document)
        , m_context(document)
    {}

    /// @return the sentence that says why not, empty when all went well
    QString read(const JsonValue& root);

private:
    struct Extent
    {
        double layers = 0;     ///< drawn by a composition, with precompositions counted at each use
        std::size_t depth = 0; ///< of the precompositions in it
        bool isOpen = false;   ///< being measured: met again, it holds itself
        bool isDone = false;
    };

    void readHeader(const JsonValue& root);
    void readAssets(const JsonValue& root);
    void readMarkers(const JsonValue& root);
    void readLayers(const JsonValue& parent, Composition& composition);
    void readLayer(const JsonValue& value, Layer& layer, LayerReferences& references);
    void readKind(const JsonValue& value, Layer& layer, LayerReferences& references);
    void readMasks(const JsonValue& value, Layer& layer);
    void readMask(const JsonValue& value, Layer& layer);
    void listMissing(const JsonValue& value);
    void resolveReferences(
        std::vector<Layer>& layers, const std::vector<LayerReferences>& references);
    void checkParents(const std::vector<Layer>& layers);
    void listMissingMattes(const Composition& composition);
    void checkPrecompositions();
    Extent measure(const Composition& composition, std::vector<Extent>& extents, std::size_t level);

    Document& m_document;
    ReadContext m_context;
    QHash<QString, int> m_assets; // place in Document::compositions
};

/// Whether a version "a.b.c" comes before another.
bool isOlder(const QString& version, std::array<int, 3> other)
{
    std::array<int, 3> numbers{};
    const QStringList parts = version.split(u'.');
    for (std::size_t i = 0; i < numbers.size() && i < static_cast<std::size_t>(parts.size()); ++i) {
        numbers[i] = parts[static_cast<qsizetype>(i)].toInt();
    }
    return !version.isEmpty() && numbers < other;
}

/// Written as "#rrggbb"; anything else is black.
void readSolidColor(const JsonValue& value, NumberProperty& color)
{
    constexpr int kBits = 8;
    constexpr unsigned kFull = 0xff;
    const QString text = value.string();
    const unsigned number = text.startsWith(u'#') ? text.mid(1).toUInt(nullptr, 16) : 0;
    color.dimensions = 3;
    color.valueSpan = value.span();
    for (int i = 0; i < color.dimensions; ++i) {
        const unsigned channel = number >> (kBits * (color.dimensions - 1 - i)) & kFull;
        color.value[static_cast<std::size_t>(i)] = double(channel) / kFull;
    }
}

bool isZero(const NumberProperty& property)
{
    return property.value == Numbers{}
           && std::all_of(property.keys.begin(), property.keys.end(), [](const auto& key) {
                  return key.value == Numbers{};
              });
}

/// Counted from 1 as in the enumeration; what we do not know is listed.
MatteMode readMatteMode(ReadContext& context, const JsonValue& value)
{
    const int mode = context.integer(value, "tt");
    if (mode >= 0 && mode <= static_cast<int>(MatteMode::InvertedLuma)) {
        return static_cast<MatteMode>(mode);
    }
    context.missing(tr("track matte"));
    return MatteMode::None;
}

QString Reader::read(const JsonValue& root)
{
    if (!root.isObject() || !root["layers"].isList()) {
        return tr("The file is not a Lottie animation: it holds no list of layers.");
    }
    readHeader(root);
    if (!m_context.failed()) {
        readAssets(root);
        readLayers(root, m_document.main);
        readMarkers(root);
    }
    if (!m_context.failed()) {
        checkPrecompositions();
    }
    return m_context.error();
}

void Reader::readHeader(const JsonValue& root)
{
    m_document.name = root["nm"].string();
    m_document.version = root["v"].string();
    m_document.notes = root[kNotesKey].string();
    m_document.frameRate = m_context.number(root, "fr");
    m_document.inPoint = m_context.number(root, "ip");
    m_document.outPoint = m_context.number(root, "op");
    const double width = std::floor(m_context.number(root, "w"));
    const double height = std::floor(m_context.number(root, "h"));
    // Files before 4.1.9 count colours to 255.
    m_document.colorUnit = isOlder(m_document.version, {4, 1, 9}) ? 255 : 1;

    if (!(m_document.frameRate > 0) || m_document.frameRate > kMaxFrameRate) {
        m_context.fail(tr("The frame rate of %1 is not above 0 and at most %2.")
                           .arg(m_document.frameRate)
                           .arg(kMaxFrameRate));
    }
    if (!(m_document.outPoint > m_document.inPoint)) {
        m_context.fail(tr("The animation has no frames: it runs from %1 to %2.")
                           .arg(m_document.inPoint)
                           .arg(m_document.outPoint));
    }
    if (std::abs(m_document.inPoint) > kMaxFrame || m_document.outPoint > kMaxFrame) {
        m_context.fail(tr("The animation is longer than %1 frames.").arg(kMaxFrame, 0, 'f', 0));
    }
    if (width < 1 || height < 1 || width > kMaxSide || height > kMaxSide) {
        m_context.fail(tr("The size of %1 by %2 pixels is not between 1 and %3 on each side.")
                           .arg(width)
                           .arg(height)
                           .arg(kMaxSide));
    }
    if (!m_context.failed()) {
        m_document.width = static_cast<int>(width);
        m_document.height = static_cast<int>(height);
    }
}

void Reader::readAssets(const JsonValue& root)
{
    const JsonValue assets = m_context.list(root, "assets");
    // All names first: a layer may use a composition that stands further down.
    std::vector<JsonValue> found;
    for (const JsonValue& asset : assets) {
        if (asset["layers"].isList()) {
            m_assets.insert(asset["id"].string(), static_cast<int>(found.size()));
            found.push_back(asset);
        }
    }
    for (const JsonValue& asset : found) {
        Composition& composition = m_document.compositions.emplace_back();
        composition.id = asset["id"].string();
        composition.name = asset["nm"].string();
        readLayers(asset, composition);
    }
}

void Reader::readMarkers(const JsonValue& root)
{
    for (const JsonValue& marker : m_context.list(root, "markers")) {
        m_document.markers.push_back(
            {marker["cm"].string(),
             m_context.number(marker, "tm"),
             m_context.number(marker, "dr")});
    }
}

void Reader::readLayers(const JsonValue& parent, Composition& composition)
{
    std::vector<LayerReferences> references;
    for (const JsonValue& value : parent["layers"]) {
        if (m_context.failed()) {
            return;
        }
        if (!value.isObject()) {
            m_context.failType(parent["layers"], tr("a list of layers"));
            return;
        }
        m_context.countItem();
        readLayer(value, composition.layers.emplace_back(), references.emplace_back());
    }
    resolveReferences(composition.layers, references);
    checkParents(composition.layers);
    listMissingMattes(composition);
}

void Reader::readLayer(const JsonValue& value, Layer& layer, LayerReferences& references)
{
    references.index = m_context.integer(value, "ind", -1);
    references.hasParent = value["parent"].exists();
    references.parent = m_context.integer(value, "parent");
    layer.name = value["nm"].string();
    if (layer.name.isEmpty()) {
        layer.name = tr("Layer %1").arg(references.index);
    }
    m_context.setLayer(layer.name, value.span().begin);
    layer.inPoint = m_context.number(value, "ip", m_document.inPoint);
    layer.outPoint = m_context.number(value, "op", m_document.outPoint);
    layer.startTime = m_context.number(value, "st");
    layer.stretch = m_context.number(value, "sr", 1);
    if (layer.stretch == 0) {
        layer.stretch = 1;
    }
    layer.hidden = m_context.flag(value, "hd");
    layer.locked = value[kLockedKey].number() == 1.0; // whatever else is there was not us
    layer.isMatte = m_context.flag(value, "td");
    layer.matte = readMatteMode(m_context, value);
    references.hasMatte = value["tp"].exists();
    references.matte = m_context.integer(value, "tp");
    layer.span = value.span();
    readTransform(m_context, m_context.object(value, "ks"), layer.transform);
    layer.transform.autoOrient = m_context.flag(value, "ao");
    layer.hasTimeRemap = value["tm"].isObject();
    readProperty(m_context, value, "tm", layer.timeRemap);
    readKind(value, layer, references);
    readMasks(value, layer);
    listMissing(value);
}

void Reader::readKind(const JsonValue& value, Layer& layer, LayerReferences& references)
{
    enum FileKind
    {
        Precomposition,
        Solid,
        Image,
        Null,
        Shape,
        Text,
        Audio,
        Camera = 13,
    };

    switch (const int kind = m_context.integer(value, "ty", -1)) {
    case Precomposition: {
        layer.kind = LayerKind::Precomposition;
        references.asset = value["refId"].string();
        layer.composition = m_assets.value(references.asset, -1);
        layer.width = m_context.number(value, "w", m_document.width);
        layer.height = m_context.number(value, "h", m_document.height);
        if (layer.composition < 0) {
            m_context.missing(tr("composition “%1”, which the file lacks").arg(references.asset));
        }
        break;
    }
    case Solid:
        layer.kind = LayerKind::Solid;
        layer.width = m_context.number(value, "sw");
        layer.height = m_context.number(value, "sh");
        readSolidColor(value["sc"], layer.color);
        break;
    case Null: layer.kind = LayerKind::Null; break;
    case Shape:
        layer.kind = LayerKind::Shape;
        readShapes(m_context, value, "shapes", layer.shapes);
        break;
    case Image: m_context.missing(tr("image")); break;
    case Text: m_context.missing(tr("text")); break;
    case Audio: m_context.missing(tr("sound")); break;
    case Camera: m_context.missing(tr("camera")); break;
    default: m_context.missing(tr("layer of kind %1").arg(kind));
    }
}

void Reader::readMasks(const JsonValue& value, Layer& layer)
{
    const bool hasMasks = !value["hasMask"].exists() || m_context.flag(value, "hasMask");
    for (const JsonValue& mask : m_context.list(value, "masksProperties")) {
        m_context.countItem();
        if (m_context.failed()) {
            return;
        }
        if (hasMasks && mask["mode"].string() != u"n") {
            readMask(mask, layer);
        }
    }
}

// The modes that are not drawn, which compare a mask with those before it, add where there are
// none.
void Reader::readMask(const JsonValue& value, Layer& layer)
{
    const QString mode = value["mode"].string();
    const bool isKnown = mode == u"a" || mode == u"s" || mode == u"i";
    const bool comesToAdding =
        layer.masks.empty() && (mode == u"l" || mode == u"d" || mode == u"f");
    if (!(isKnown || comesToAdding) || !value["pt"].exists()) {
        m_context.missing(tr("mask of mode “%1”").arg(mode));
    }
    if (!value["pt"].exists()) {
        return;
    }
    Mask& mask = layer.masks.emplace_back();
    mask.mode = mode == u"s"   ? MaskMode::Subtract
                : mode == u"i" ? MaskMode::Intersect
                               : MaskMode::Add;
    mask.inverted = m_context.flag(value, "inv");
    readProperty(m_context, value, "pt", mask.path, true);
    readProperty(m_context, value, "o", mask.opacity);
    const std::pair<const char*, QString> softer[] = {
        {"f", tr("mask feather")}, {"x", tr("mask expansion")}};
    for (const auto& [key, feature] : softer) {
        NumberProperty property;
        readProperty(m_context, value, key, property);
        if (!isZero(property)) {
            m_context.missing(feature);
        }
    }
}

void Reader::listMissing(const JsonValue& value)
{
    if (m_context.list(value, "ef").size() > 0) {
        m_context.missing(tr("effect"));
    }
    if (m_context.list(value, "sy").size() > 0) {
        m_context.missing(tr("layer style"));
    }
    if (m_context.number(value, "bm") != 0) {
        m_context.missing(tr("blend mode"));
    }
    if (m_context.flag(value, "ddd")) {
        m_context.missing(tr("third dimension"));
    }
}

void Reader::resolveReferences(
    std::vector<Layer>& layers, const std::vector<LayerReferences>& references)
{
    QHash<int, int> places;
    for (std::size_t i = references.size(); i-- > 0;) {
        places.insert(references[i].index, static_cast<int>(i)); // of twins the upper one counts
    }
    for (std::size_t i = 0; i < references.size(); ++i) {
        if (references[i].hasParent) {
            layers[i].parent = places.value(references[i].parent, -1);
        }
        if (references[i].hasMatte) {
            layers[i].matteLayer = places.value(references[i].matte, static_cast<int>(i));
        }
    }
}

void Reader::checkParents(const std::vector<Layer>& layers)
{
    // Walks up from each layer, no further than a layer whose number of parents is known.
    std::vector<std::size_t> heights(layers.size(), 0);
    for (std::size_t start = 0; start < layers.size(); ++start) {
        std::vector<std::size_t> way;
        int at = static_cast<int>(start);
        while (at >= 0 && heights[static_cast<std::size_t>(at)] == 0) {
            way.push_back(static_cast<std::size_t>(at));
            if (way.size() > layers.size()) {
                m_context.fail(
                    tr("The parents of layer “%1” form a circle.").arg(layers[way.back()].name));
                return;
            }
            at = layers[way.back()].parent;
        }
        std::size_t height = at >= 0 ? heights[static_cast<std::size_t>(at)] : 0;
        for (auto passed = way.rbegin(); passed != way.rend(); ++passed) {
            heights[*passed] = ++height;
        }
        if (height > kMaxParents) {
            m_context.fail(tr("Layer “%1” has more than %2 parents above each other.")
                               .arg(layers[start].name, QString::number(kMaxParents)));
            return;
        }
    }
}

void Reader::listMissingMattes(const Composition& composition)
{
    for (const Layer& layer : composition.layers) {
        if (layer.matte != MatteMode::None && !matteOf(composition, layer)) {
            m_context.setLayer(layer.name, layer.span.begin);
            m_context.missing(tr("track matte"));
        }
    }
}

void Reader::checkPrecompositions()
{
    std::vector<Extent> extents(m_document.compositions.size());
    for (const Composition& composition : m_document.compositions) {
        measure(composition, extents, 0);
    }
    if (measure(m_document.main, extents, 0).layers > kMaxDrawnLayers) {
        m_context.fail(
            tr("The animation has more than %1 layers, with precompositions counted at each use.")
                .arg(kMaxDrawnLayers));
    }
}

// What a composition draws with all it holds. `extents` remembers that of Document::compositions.
Reader::Extent Reader::measure(
    const Composition& composition, std::vector<Extent>& extents, std::size_t level)
{
    Extent local;
    const bool isMain = &composition == &m_document.main;
    Extent& known =
        isMain ? local
               : extents[static_cast<std::size_t>(&composition - m_document.compositions.data())];
    if (known.isOpen) {
        m_context.fail(tr("The precomposition “%1” holds itself.").arg(composition.id));
    }
    if (known.isOpen || known.isDone || m_context.failed()) {
        return known;
    }
    known.isOpen = true;
    for (const Layer& layer : composition.layers) {
        ++known.layers;
        if (layer.composition < 0) {
            continue;
        }
        const auto place = static_cast<std::size_t>(layer.composition);
        const Extent inner = measure(m_document.compositions[place], extents, level + 1);
        known.layers += inner.layers;
        known.depth = std::max(known.depth, inner.depth + 1);
    }
    if (std::max(level, known.depth) > kMaxPrecompositions) {
        m_context.fail(
            tr("Precompositions are nested more than %1 deep.").arg(kMaxPrecompositions));
    }
    known.isOpen = false;
    known.isDone = true;
    return known;
}

QString parseError(const JsonTree& tree)
{
    switch (tree.failure()) {
    case JsonTree::Failure::TooDeep:
        return tr("The file nests lists and objects more than %1 deep.").arg(kMaxNesting);
    case JsonTree::Failure::TooLarge:
        return tr("The file holds more than %1 values.").arg(kMaxJsonValues);
    case JsonTree::Failure::Syntax:
    case JsonTree::Failure::None: break;
    }
    return tr("The file is damaged or not JSON: it is unreadable from byte %1.")
        .arg(tree.failedAt());
}

ReadResult failure(const QString& sentence)
{
    return {std::nullopt, sentence};
}

QString tooLarge(qint64 bytes)
{
    constexpr qint64 kMegabyte = 1 << 20;
    return tr("The file has %1 MB; at most %2 MB can be opened.")
        .arg((bytes + kMegabyte - 1) / kMegabyte)
        .arg(static_cast<qint64>(kMaxFileBytes) / kMegabyte);
}

} // namespace

ReadResult read(std::string bytes)
{
    if (bytes.size() > kMaxFileBytes) {
        return failure(tooLarge(static_cast<qint64>(bytes.size())));
    }
    Document document;
    document.bytes = std::move(bytes);
    JsonTree tree;
    if (!tree.parse(document.bytes, {kMaxNesting, kMaxJsonValues})) {
        return failure(parseError(tree));
    }
    const QString error = Reader(document).read(tree.root());
    if (!error.isEmpty()) {
        return failure(error);
    }
    return {std::move(document), {}};
}

ReadResult readFile(const QString& path)
{
    const QFileInfo info(path);
    if (info.exists() && !info.isFile()) {
        return failure(tr("“%1” is not a file.").arg(path)); // opening a pipe would wait
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return failure(tr("“%1” cannot be opened: %2.").arg(path, file.errorString()));
    }
    // The file may grow, and some systems' files have no size: one byte more than is allowed tells.
    const QByteArray bytes = file.read(static_cast<qint64>(kMaxFileBytes) + 1);
    if (bytes.size() > static_cast<qsizetype>(kMaxFileBytes)) {
        const qint64 size = std::max(file.size(), qint64(bytes.size()));
        return failure(tr("“%1”: %2").arg(info.fileName(), tooLarge(size)));
    }
    ReadResult result = read(bytes.toStdString());
    if (!result) {
        result.error = tr("“%1”: %2").arg(info.fileName(), result.error);
    }
    return result;
}

} // namespace studio
