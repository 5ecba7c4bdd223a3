/* Plays an application that sets a printer up and knows the public header only. It works in the current
   folder, prints what the library tells and ends with 1 at the first call that fails.

   setup_application PRINTER */

#include <stdio.h>
#include <string.h>

#include "zeapi.h"

#define CONTROLS 4
#define PANEL 7
#define PAGE 1

static int failed;

static void Expect(int isRight, const char* call) {
  if (isRight || failed) return;
  printf("failed: %s\n", call);
  failed = 1;
}

static unsigned LittleEndian(const unsigned char* bytes, int width) {
  unsigned value = 0;
  while (width > 0) value = value << 8 | bytes[--width];
  return value;
}

static void ReadPanel(void) {
  unsigned char records[CONTROLS * 6];
  void* panel = ZeOpcRegisterCfg(PANEL, ".");
  Expect(panel != NULL, "ZeOpcRegisterCfg");
  if (panel == NULL) return;
  const int16_t controls = ZeOpcGetPageDefaults(panel, PAGE, records, sizeof(records));
  Expect(controls > 0 && controls <= CONTROLS, "ZeOpcGetPageDefaults");
  for (int i = 0; i < controls && i < CONTROLS; ++i) {
    printf("control %u: %d\n", LittleEndian(records + 6 * i, 2),
           (int)LittleEndian(records + 6 * i + 2, 4));
  }
  Expect(ZeOpcUnregisterCfg(panel) == 1, "ZeOpcUnregisterCfg");
}

static void SendFonts(const char* printer, const ZeDestination* destination) {
  uint16_t count = 0;
  ZeFoundFile* fonts = ZeFonFind("fonts", &count, 26, 5, 0, 0);
  Expect(fonts != NULL && count > 0, "ZeFonFind");
  for (const ZeFoundFile* font = fonts; font != NULL; font = font->next) {
    const ZeFontInfo* info = font->info;
    printf("font %s: %s\n", font->path, info->description);
    Expect(ZeFonDownload(font->path, printer, destination, ZE_DEVICE_DISK1) == ZE_OK,
           "ZeFonDownload");
  }
  ZeFonFindFree(fonts);
}

static void SendMacro(const char* printer, const ZeDestination* destination) {
  ZeMacroInfo macro;
  memset(&macro, 0, sizeof(macro));
  macro.macroDevice = ZE_DEVICE_RAM;
  strcpy(macro.macroName, "LETTERHEAD");
  Expect(ZeMacDownload("letter.pcl", printer, destination, &macro, ZE_MACRO_STORE,
                       ZE_MACRO_WRAPPED) == ZE_OK,
         "ZeMacDownload");
}

static void SendDemo(const char* printer, const ZeDestination* destination) {
  ZeDestination ownDestination = *destination;
  ZeDemoInfo demo;
  memset(&demo, 0, sizeof(demo));
  demo.method = ZE_DEMO_PJL_FILE;
  demo.device = ZE_DEVICE_FLASH1;
  strcpy(demo.name, "WELCOME");
  Expect(ZeDemDownload("demo.pcl", printer, &ownDestination, &demo) == ZE_OK, "ZeDemDownload");
}

static void ReadOptions(void) {
  static unsigned char record[1024];
  FILE* file = fopen("options.bin", "rb");
  Expect(file != NULL && fread(record, 1, sizeof(record), file) > 2, "options.bin");
  if (file != NULL) fclose(file);
  ZeOptionInfo* options = ZeParseOptionInfo(record);
  Expect(options != NULL, "ZeParseOptionInfo");
  if (options == NULL) return;
  for (uint32_t i = 0; i < options->itemCount; ++i)
    printf("option %d: %s\n", (int)options->items[i].value1, options->items[i].text6);
  ZeFreeOptionInfo(options);
}

static uint32_t ZEAPI_CALL TellFile(const char* name, uint32_t compressedSize,
                                    uint32_t percentage) {
  printf("file %s: %u bytes, %u %%\n", name, (unsigned)compressedSize, (unsigned)percentage);
  return 0;
}

static void ShowAddress(void) {
  char address[256];
  Expect(ZeWebGetURL(0, ZE_WEB_DRIVERS, 3, address, sizeof(address), NULL) == ZE_OK, "ZeWebGetURL");
  if (!failed) printf("address %s\n", address);
}

int main(int count, char** arguments) {
  if (count != 2) return 2;
  ZeDestination destination;
  memset(&destination, 0, sizeof(destination));
  destination.flags = ZE_FLAG_PJL;
  destination.language = ZE_LANGUAGE_PCL;
  destination.resourceId = 21;
  destination.jobName = "Set up";

  ReadPanel();
  SendFonts(arguments[1], &destination);
  SendMacro(arguments[1], &destination);
  SendDemo(arguments[1], &destination);
  ReadOptions();
  Expect(ZeZipExplode("forms.zip", "*.txt", TellFile) == ZE_OK, "ZeZipExplode");
  ShowAddress();
  return failed;
}
