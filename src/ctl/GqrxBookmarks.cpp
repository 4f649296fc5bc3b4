#include "ctl/GqrxBookmarks.h"

#include <cmath>

#include "ctl/Messages.h"
#include "ctl/Record.h"
#include "storage/lists/ComposedFile.h"
#include "storage/stations/ReceptionSystem.h"
#include "storage/text/Numbers.h"

namespace {

// Settings of gqrx per list. It has no DRM demodulator: the raw stream goes to an external decoder.
struct Reception {
    std::u16string_view tag;
    std::u16string_view modulation;
    std::u16string_view bandwidth;  // Hz
};

Reception receptionOf(std::u16string_view system) {
    if (system == ReceptionSystem::typeOf(ListKind::Drm)) {
        return {u"DRM", u"Raw I/Q", u"10000"};
    }
    return ReceptionSystem::isFm(system) ? Reception{u"FM", u"WFM (stereo)", u"160000"}
                                         : Reception{u"AM", u"AM", u"10000"};
}

std::u16string padded(std::u16string_view text, std::size_t width, bool toTheRight) {
    const std::size_t blanks = text.size() < width ? width - text.size() : 0;
    std::u16string result(text);
    result.insert(toTheRight ? 0 : result.size(), blanks, u' ');
    return result;
}

// A semicolon would end the field.
std::u16string withoutSemicolons(std::u16string_view name) {
    std::u16string text = printable(name);
    for (char16_t& unit : text) {
        unit = unit == u';' ? u',' : unit;
    }
    return text;
}

void appendBookmark(std::u16string& text, const Record& record, std::u16string_view system) {
    constexpr std::size_t kFrequencyWidth = 12;
    constexpr std::size_t kNameWidth = 25;
    constexpr std::size_t kModulationWidth = 20;
    constexpr std::size_t kBandwidthWidth = 10;
    const Reception reception = receptionOf(system);
    const std::u16string hertz = shortestDecimal(std::round(leadingNumber(record.frequency) * 1000));
    text += padded(hertz, kFrequencyWidth, true) + u"; ";
    text += padded(withoutSemicolons(record.programme), kNameWidth, false) + u"; ";
    text += padded(std::u16string(reception.modulation), kModulationWidth, false) + u"; ";
    text += padded(std::u16string(reception.bandwidth), kBandwidthWidth, true) + u"; ";
    (text += reception.tag) += u'\n';
}

}  // namespace

std::string gqrxOf(const Lists& lists) {
    constexpr std::size_t kUsualFile = 65'536;
    ComposedFile file(
        u"# Tag name          ;  color\n"
        u"DRM                 ; #4878cf\n"
        u"AM                  ; #6acc65\n"
        u"FM                  ; #d65f5f\n\n"
        u"# Frequency ; Name                     ; Modulation          ;  Bandwidth; Tags\n",
        kUsualFile);
    for (const ListKind kind : kListKinds) {
        const Grid& grid = lists.grid(kind);
        for (int row = 1; row <= grid.rowCount(); ++row) {
            const Record record = recordOf(grid, kind, row);
            appendBookmark(file.text(), record,
                           kind == ListKind::Favourite ? record.system : ReceptionSystem::typeOf(kind));
            file.endRecord();
        }
    }
    return file.takeBytes();
}
