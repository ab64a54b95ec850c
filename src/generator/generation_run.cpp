#include "generator/generation_run.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/product.h"
#include "base/text.h"

#include <utility>

namespace mrd::generator {
namespace {

constexpr int kMessageOutsideExport = 101;

/// The register's rows are written together at the end of the run, also of one that failed: they tell what it wrote.
class RegisterTransaction {
public:
  explicit RegisterTransaction(dao::Database& db) : transaction_(db) {}
  ~RegisterTransaction()
  {
    try {
      commit();
    } catch (const base::Error&) {
      // The rows of the last run stay, which is better than none; the failure that led here is the one to tell.
    }
  }
  RegisterTransaction(const RegisterTransaction&) = delete;
  RegisterTransaction& operator=(const RegisterTransaction&) = delete;

  void commit()
  {
    if (std::exchange(open_, false))
      transaction_.commit();
  }

private:
  dao::Transaction transaction_;
  bool open_ = true;
};

/// Takes the progress bar away however the run ends.
struct ProgressBar {
  ui::Ui& ui;
  ~ProgressBar() { ui.hideProgress(); }
};

} // namespace

GenerationRun::GenerationRun(const RunJob& job, const RunDifferences& differences)
    : job_(job), environment_(job.environment), fields_(job.environment.fields), db_(job.db), ui_(job.environment.language.ui()),
      now_(job.environment.clock.now()), index_(job.db), register_(job.db, job.environment.language),
      siteFiles_(job.environment.program, job.exportpfad, register_), differences_(differences), exportDirectory_(job.exportpfad)
{
}

RunOutcome GenerationRun::run()
{
  const ui::WaitPointer wait(ui_);
  const ProgressBar progressBar{ui_};
  RegisterTransaction transaction(db_);
  generate();
  transaction.commit();
  if (outcome_.finished) {
    job_.showState(base::replaceAll(differences_.closingLine, "#", std::to_string(outcome_.generated)));
    closeRun();
  }
  return outcome_;
}

void GenerationRun::generate()
{
  register_.clearRunFiles();
  bringSiteFiles();
  const auto [sql, parameters] = pageQuery(job_.selection, readSetting(db_, "lastgendate"), differences_.order);
  auto pages = db_.openRecordset(sql, parameters);
  if (pages.eof() && differences_.stopsWhenEmpty) {
    ui_.messageBox({"Es wurden keine Seiten zum Generieren gefunden.", std::string(base::kProductName)});
    return;
  }
  total_ = pages.recordCount();
  generatePages(pages);
  if (outcome_.finished && differences_.storesDate)
    writeLastGenDate(db_, now_);
}

RunPage GenerationRun::readPage(const dao::Recordset& pages)
{
  const auto optionalText = [&](std::string_view column) {
    const dao::Value value = pages.value(column);
    return value.isNull() ? std::nullopt : std::optional(value.text());
  };
  const dao::Value type = pages.value("seitentyp-id");
  return {pages.value("id").text(),
          pages.value("Überschrift").text(),
          pages.value("dateiname").text(),
          type.isNull() ? std::nullopt : std::optional(static_cast<int>(type.integer())),
          optionalText("html"),
          optionalText("script")};
}

bool GenerationRun::nextTurn()
{
  ui_.progress(++turn_, total_);
  job_.showProgress(turn_, total_);
  const bool stopped = ui_.pumpEvents();
  return !stopped && !job_.stopAsked();
}

std::optional<files::OutputFile> GenerationRun::openPage(const RunPage& page, const std::string& file)
{
  if (!staysInDirectory(file)) {
    environment_.language.GetMsg(kMessageOutsideExport, page.id + ": " + file, "R");
    ++outcome_.refused;
    return std::nullopt;
  }
  ++outcome_.generated;
  job_.showState(base::format("ID:{} - {}: {}", page.id, file, page.Überschrift));
  std::optional<files::OutputFile> output(exportDirectory_.open(file));
  register_.dateiindatenbank(pathOf(file), project::Dateityp::Page);
  return output;
}

void GenerationRun::closePage(files::OutputFile& output, const std::string& file)
{
  output.close();
  if (job_.selection.isPreview())
    environment_.shell.open(pathOf(file));
}

} // namespace mrd::generator
