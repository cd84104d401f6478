#include "Plotter.h"

#include <filesystem>

#include "failures.h"
#include "interruption.h"
#include "netcdf/title.h"

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

void refuseShortfall(const std::string& shortfall) {
  if (!shortfall.empty()) throw Failure(shortfall);
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
}

void Plotter::drawStep(int32_t step) {
  const std::string shortfall =
      shortfallOf(control_, desktop_, [&] { control_.SetCurrentTime(step); });
  refuseShortfall(shortfall);
  if (!request_.view.autoKey) return;
  initColorKey(control_, desktop_);
  refuseShortfall(shortfallOf(control_, desktop_, [&] { control_.ReDraw(); }));
}

void Plotter::drawNextStep() {
  refuseShortfall(shortfallOf(control_, desktop_, [&] { control_.AdvanceTime(1); }));
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
