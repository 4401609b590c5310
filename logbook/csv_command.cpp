// zol-logbook csv: a recording as a table for a spreadsheet.
//
// Fields and lines are those of RFC 4180; the file begins with a byte-order mark, without which
// some spreadsheets read UTF-8 as another encoding.
#include "link/telegram_positions.h"
#include "logbook/commands.h"
#include "logbook/decoder.h"
#include "logbook/options.h"
#include "logbook/recording_file.h"
#include "logbook/words.h"

#include <algorithm>
#include <cstdio>

namespace zol::logbook {
namespace {

struct Separator {
    std::string_view name;
    char character;
    char decimal_point; // what spreadsheets expect that part columns by the character
};
constexpr Separator separators[] = {
    {"comma", ',', '.'}, {"semicolon", ';', ','}, {"tab", '\t', '.'}};

constexpr const char* write_columns[] = {"Parameter", "Name", "Old value", "New value", "Unit"};

class Table {
  public:
    explicit Table(const Separator& separator) : separator_(separator) {
        text_ = "\xEF\xBB\xBF";
        row_ = {"Time [s]", "Kind"};
        for (const auto fields : {status_fields(), live_fields()})
            for (const Field& field : fields)
                row_.push_back(field.name +
                               (field.unit[0] == 0 ? "" : " [" + std::string(field.unit) + "]"));
        row_.insert(row_.end(), std::begin(write_columns), std::end(write_columns));
        columns_ = row_.size();
        end_row();
    }

    void add(const Decoded& decoded) {
        const auto status = status_fields().size(), live = live_fields().size();
        if (decoded.kind == Decoded::Kind::write) {
            begin_row(decoded.at_us, "write", status + live);
            add_write(decoded);
        } else if (is_answer(decoded, link::Command::status)) {
            begin_row(decoded.at_us, "status", 0);
            add_values(status_values(decoded.reply, separator_.decimal_point));
        } else if (is_answer(decoded, link::Command::eobd_live) &&
                   decoded.reply.length() >= link::live_data_length) {
            begin_row(decoded.at_us, "live data", status);
            add_values(live_values(decoded.reply, separator_.decimal_point));
        } else {
            return;
        }
        row_.resize(columns_);
        end_row();
    }
    // False if standard output takes no more.
    bool flush() {
        const bool good = std::fwrite(text_.data(), 1, text_.size(), stdout) == text_.size();
        text_.clear();
        return good;
    }

  private:
    static bool is_answer(const Decoded& decoded, link::Command command) {
        return decoded.kind == Decoded::Kind::reply &&
               decoded.request.command == static_cast<int>(command);
    }
    void begin_row(std::int64_t at_us, const char* kind, std::size_t empty_fields) {
        char seconds[40];
        std::snprintf(seconds, sizeof seconds, "%lld%c%03lld",
                      static_cast<long long>(at_us / 1'000'000), separator_.decimal_point,
                      static_cast<long long>(at_us / 1000 % 1000));
        row_ = {seconds, kind};
        row_.resize(2 + empty_fields);
    }
    void add_values(const std::vector<std::string>& values) {
        row_.insert(row_.end(), values.begin(), values.end());
    }
    void add_write(const Decoded& write) {
        const int number = write.request.number;
        add_values({"PAR_" + std::to_string(number), parameter_name(number),
                    write.old_value ? std::to_string(*write.old_value) : "",
                    std::to_string(write.request.value), parameter_unit(number)});
    }
    void end_row() {
        for (std::size_t i = 0; i < row_.size(); ++i) {
            if (i > 0) text_ += separator_.character;
            add_field(row_[i]);
        }
        text_ += "\r\n";
    }
    void add_field(const std::string& field) {
        const char special[] = {separator_.character, '"', '\r', '\n', 0};
        if (field.find_first_of(special) == field.npos) {
            text_ += field;
            return;
        }
        text_ += '"';
        for (const char c : field)
            text_ += c == '"' ? std::string("\"\"") : std::string(1, c);
        text_ += '"';
    }

    const Separator& separator_;
    std::string text_;
    std::vector<std::string> row_;
    std::size_t columns_ = 0;
};

} // namespace

int csv_command(Words words) {
    std::string separator_name = "comma";
    std::vector<std::string> files;
    if (!read_options(words, {{"--separator", &separator_name}}, files)) return wrong_words;
    const auto separator =
        std::find_if(std::begin(separators), std::end(separators),
                     [&](const Separator& one) { return one.name == separator_name; });
    if (separator == std::end(separators) || files.size() != 1) {
        complain(files.size() == 1 ? "--separator takes comma, semicolon or tab."
                                   : "csv takes one file, as in: zol-logbook csv A.zlog > A.csv");
        return wrong_words;
    }
    Table table(*separator);
    RecordingHeader header;
    Decoder decoder([&](const Decoded& decoded) { table.add(decoded); });
    bool written = true;
    const ReadResult result = read_recording(files[0], header, [&](const Event& event) {
        decoder.push(event);
        written = table.flush() && written;
    });
    decoder.finish();
    written = table.flush() && written;
    if (!result.wrong.empty()) complain(result.wrong);
    if (!written) complain("Standard output cannot be written; make room where it leads to.");
    return result.wrong.empty() && written ? done : failed;
}

} // namespace zol::logbook
