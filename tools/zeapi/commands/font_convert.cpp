// zeapi font convert: font metrics in another format.
#include <cstring>
#include <memory>

#include "choice.h"
#include "commands/font_family.h"

namespace tool {
namespace {

constexpr Choice kConversions[] = {
    {"afm-to-pfm", ZE_CONVERT_AFM_TO_PFM}, {"afm-to-pfm-and-psm", ZE_CONVERT_AFM_TO_PFM_AND_PSM},
    {"pfm-to-afm", ZE_CONVERT_PFM_TO_AFM}, {"dlf-to-pbm", ZE_CONVERT_DLF_TO_PBM},
    {"pcl-to-pfm", ZE_CONVERT_PCL_TO_PFM}, {"pcl-to-pfm-named", ZE_CONVERT_PCL_TO_PFM_NAMED},
    {"tfm-to-pfm", ZE_CONVERT_TFM_TO_PFM}, {"tfm-to-pfm-named", ZE_CONVERT_TFM_TO_PFM_NAMED},
};

constexpr std::uint32_t kCompanionFile = 2;  // the path of a record that names the TFM file

struct ConvertOptions {
  std::string file;
  std::int32_t conversion = 0;
  std::string output;
  std::string tfm;
};

bool NeedsTfm(std::int32_t conversion) {
  return conversion == ZE_CONVERT_TFM_TO_PFM || conversion == ZE_CONVERT_TFM_TO_PFM_NAMED;
}

// What is read, for a message: the file that does not exist may be the second one.
std::string Sources(const ConvertOptions& options) {
  const bool needsInf = options.conversion == ZE_CONVERT_AFM_TO_PFM ||
                        options.conversion == ZE_CONVERT_AFM_TO_PFM_AND_PSM;
  if (needsInf) return options.file + " with the INF file beside it";
  return NeedsTfm(options.conversion) ? options.file + " with " + options.tfm : options.file;
}

// The record of the PCL font that the TFM file belongs to. False when there is none.
bool FillRecord(const ConvertOptions& options, ZeFontInfo* info, std::uint32_t* result) {
  *result = ZeFonQueryInfo(options.file.c_str(), info, 0, 0);
  if (*result != ZE_OK) return false;
  if (options.tfm.size() >= sizeof(info->companionFile)) {
    *result = ZE_INVALID_ARGUMENT;
    return false;
  }
  std::memcpy(info->companionFile, options.tfm.c_str(), options.tfm.size() + 1);
  return true;
}

void Convert(const ConvertOptions& options, Session& session) {
  if (NeedsTfm(options.conversion) && options.tfm.empty()) throw CLI::RequiredError("--tfm");
  const std::string conversion = NameOf(kConversions, options.conversion);
  Report report;
  report.command = "font convert";
  ZeFontInfo info = {};
  if (!NeedsTfm(options.conversion) || FillRecord(options, &info, &report.result)) {
    report.result = ZeFonConvert(options.file.c_str(), options.output.c_str(), &info,
                                 kCompanionFile, static_cast<std::uint32_t>(options.conversion));
  }
  report.done = "Converted " + options.file + " (" + conversion + ").";
  report.cannot = "convert " + Sources(options);
  report.fields = {{"file", options.file}, {"conversion", conversion}, {"output", options.output}};
  session.Finish(report);
}

}  // namespace

void AddFontConvert(CLI::App& family, Session& session) {
  const auto options = std::make_shared<ConvertOptions>();
  CLI::App* command = session.AddCommand(
      family, "convert", "Turn font metrics into another format",
      "afm-to-pfm, afm-to-pfm-and-psm  Type 1 metrics, with the INF file beside the AFM\n"
      "pfm-to-afm                      Windows metrics\n"
      "dlf-to-pbm                      a DLF font\n"
      "pcl-to-pfm, ...-named           a PCL soft font; \"named\": with its stored name\n"
      "tfm-to-pfm, ...-named           FILE is the PCL font whose metrics --tfm names\n"
      "JSON: \"file\", \"conversion\", \"output\" (empty: beside FILE).");
  command->add_option("file", options->file, "Font or metrics file")->required()->type_name("FILE");
  command->add_option("conversion", options->conversion, NamesOf(kConversions))
      ->required()
      ->transform(OneOf(kConversions))
      ->type_name("CONVERSION");
  command
      ->add_option("-o,--output", options->output, "Name of what is made; by default beside FILE")
      ->type_name("NAME");
  command->add_option("--tfm", options->tfm, "Intellifont metrics of the font")->type_name("FILE");
  command->callback([options, &session] { Convert(*options, session); });
}

}  // namespace tool
