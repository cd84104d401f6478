#include "Plotter.h"

#include <filesystem>

#include "failures.h"
#include "interruption.h"
#include "netcdf/title.h"
#include "render/plotFrame.h"
#include "terminal.h"
#include "util/numberText.h"

namespace cli {
namespace {

using platform::CairoPictures;

CairoPictures::Kind kindOf(PictureFormat format) {
  return format == PictureFormat::Png ? CairoPictures::Kind::Pixels : CairoPictures::Kind::Vectors;
}

// What the picture shows: the variable and the date.
std::string pictureTitle() {
  if (ocxNetNc::TitleLines.size() < 4) return {};
  const std::string& date = ocxNetNc::TitleLines(2);
  return ocxNetNc::TitleLines(4) + (date.empty() ? "" : ", " + date);
}

std::string pixels(float width, float height) {
  return util::generalText(width) + "x" + util::generalText(height);
}

[[noreturn]] void refusePicture(const std::string& shortfall, PictureSize size) {
  if (!shortfall.starts_with("[Cartesian] screen size out of range")) throw Failure(shortfall);
  const KelvaneMain::PlotGeometry& plot = KelvaneMain::plot;
  throw Failure(shortfall + "\nThe picture is too small for its margins: of its " +
                pixels(static_cast<float>(size.width), static_cast<float>(size.height)) +
                " pixels they take " +
                pixels(plot.LeftMargin + plot.RightMargin, plot.TopMargin + plot.BottomMargin) +
                ".");
}

void noteHiddenProfiles(const PictureRequest& request) {
  constexpr std::size_t kColours = 7;
  if (!request.view.single || request.section.path.size() < kColours) return;
  report(
      "note: one graph tells six profiles apart; the seventh is white on white, and from the "
      "eighth on the colours repeat.");
}

bool sameFile(const std::string& one, const std::string& other) {
  std::error_code ignored;
  return std::filesystem::equivalent(one, other, ignored);
}

}  // namespace

Plotter::Plotter(const PictureRequest& request)
    : pictures_(kindOf(request.format)),
      control_(pictures_.pictures(), desktop_),
      request_(request) {
  control_.Resize(request.size.width, request.size.height);
  prepareSection(control_, request.section);
  applyView(control_, request.view);
  noteHiddenProfiles(request);
}

void Plotter::drawStep(int32_t step) {
  drawThrough([&] { control_.SetCurrentTime(step); });
  if (!request_.view.autoKey) return;
  initColorKey(control_, desktop_);
  drawThrough([&] { control_.ReDraw(); });
}

void Plotter::drawNextStep() {
  drawThrough([&] { control_.AdvanceTime(1); });
}

void Plotter::drawThrough(const std::function<void()>& member) {
  const std::string shortfall = shortfallOf(control_, desktop_, member);
  if (!shortfall.empty()) refusePicture(shortfall, request_.size);
}

void Plotter::save(const std::string& name) const {
  const SignalsWait untilWritten;
  switch (request_.format) {
    case PictureFormat::Png:
      pictures_.savePng(name);
      break;
    case PictureFormat::Svg:
      pictures_.saveSvg(name, pictureTitle());
      break;
    case PictureFormat::Pdf:
      pictures_.savePdf(name, pictureTitle());
      break;
  }
}

void refuseToReplaceSource(const PictureRequest& request, const std::string& picture) {
  if (sameFile(request.section.dataSet, picture)) {
    throw Failure("The picture would replace the data set: " + picture);
  }
  if (request.view.keyFile && sameFile(*request.view.keyFile, picture)) {
    throw Failure("The picture would replace the key file: " + picture);
  }
}

}  // namespace cli
