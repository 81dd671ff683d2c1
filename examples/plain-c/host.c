/* A host in plain C. It loads the library while it runs, as a program of another compiler does, fills in a portal frame
 * and runs a static and a modal analysis without windows.
 *
 *     host LIBRARY        writes portal_StaticLinearSol.txt and portal.mode where it stands
 */

#include <stdio.h>
#include <string.h>

#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#endif

#include "skyframe/skyframe.h"

/* The functions that this host uses. */
static struct {
  const char* (*version)(void);
  int (*open)(const struct RecordSizes* sizes);
  void (*close)(void);
  int (*use_callbacks)(void (*message)(void*, const char*), void (*console)(void*, const char*), void* context);
  int (*tick)(int dialog, int check, int on);
  int (*type)(int dialog, int edit, const char* text);
  int (*toggle_row)(int dialog, int list, int row);
  int (*click)(int dialog, int button);
  struct tagAbcd* (*abcd)(void);
  struct tagComDat* (*comdat)(void);
  struct tagSect* (*sect)(void);
  void (*reset_host_data)(void);
  int (*set_job_path)(const char* path);
  int (*encode_restraint)(const int* restrained);
  int (*encode_load)(int load_case, int direction);
  void (*on_static_nonlinear_sol)(void);
  void (*on_mode)(void);
  int (*get_status)(int analysis);
  const char* (*get_file)(int analysis, int file);
} skyframe;

/* The address of a function of the library, put where the pointer stands; 0 when it has none of that name. */
static int find_function(void* library, const char* name, void* pointer) {
#ifdef _WIN32
  FARPROC address = GetProcAddress((HMODULE)library, name);
#else
  void* address = dlsym(library, name);
#endif
  memcpy(pointer, &address, sizeof address);
  if (!address) fprintf(stderr, "the library has no function %s\n", name);
  return address != NULL;
}

/* sizeof makes the compiler compare the pointer with the declaration in the header; nothing is evaluated there. */
#define FIND(name) \
  ((void)sizeof(skyframe.name = skyframe_##name), find_function(library, "skyframe_" #name, &skyframe.name))

static int load_library(const char* path) {
#ifdef _WIN32
  void* library = (void*)LoadLibraryA(path);
#else
  void* library = dlopen(path, RTLD_NOW);
#endif
  if (!library) {
    fprintf(stderr, "the library cannot be loaded: %s\n", path);
    return 0;
  }
  return FIND(version) && FIND(open) && FIND(close) && FIND(use_callbacks) && FIND(tick) && FIND(type) &&
         FIND(toggle_row) && FIND(click) && FIND(abcd) && FIND(comdat) && FIND(sect) && FIND(reset_host_data) &&
         FIND(set_job_path) && FIND(encode_restraint) && FIND(encode_load) && FIND(on_static_nonlinear_sol) &&
         FIND(on_mode) && FIND(get_status) && FIND(get_file);
}

static void show_message(void* context, const char* text) {
  (void)context;
  printf("  module: %s\n", text);
}

static void write_console(void* context, const char* text) { fputs(text, (FILE*)context); }

/* Nodes 1 and 4 are clamped; columns 1-2 and 4-3 of 4 m, a beam 2-3 of 6 m. */
static void fill_geometry(void) {
  static const float x[] = {0, 0, 6, 6};
  static const float z[] = {0, 4, 4, 0};
  static const int clamped[6] = {1, 1, 1, 1, 1, 1};
  struct tagAbcd* abcd = skyframe.abcd();
  abcd->m_nNodes = 4;
  for (int i = 1; i <= 4; ++i) {
    abcd->m_fX[i] = x[i - 1];
    abcd->m_fZ[i] = z[i - 1];
    abcd->m_nJoint[i] = 1;
  }
  abcd->m_nRestraint[1] = abcd->m_nRestraint[4] = skyframe.encode_restraint(clamped);
  abcd->m_nElements = 3;
  for (int k = 0; k < 3; ++k) {
    abcd->m_nElementType[k] = 1;
    abcd->m_nFirstNode[k] = k + 1;
    abcd->m_nSecondNode[k] = k + 2;
    abcd->m_nSection[k] = 102; /* group 1, shape 2 */
  }
  skyframe.sect()->m_fArea[1] = 10000.0F;
  struct tagComDat* comdat = skyframe.comdat();
  comdat->m_fIx[1] = 1.0e6F;
  comdat->m_fIy[1] = comdat->m_fIz[1] = 2.0e8F;
}

/* Dead load: 50 kN downwards and 20 kN along X at either end of the beam. */
static void fill_loads(void) {
  struct tagAbcd* abcd = skyframe.abcd();
  abcd->m_nLoads = 4;
  for (int k = 0; k < 4; ++k) {
    const int direction = k < 2 ? 2 : 0;
    abcd->m_nLoadNode[k] = 2 + k % 2;
    abcd->m_nLoadCode[k] = skyframe.encode_load(0, direction);
    abcd->m_fLoadValue[k] = direction == 2 ? -50.0F : 20.0F;
  }
}

/* What a person would do in the dialogs; OK is pressed in the end. */
static void answer_dialogs(void) {
  skyframe.tick(c_nIdNonlinStaticDlg, c_nIdNonlinear, 0);
  skyframe.click(c_nIdNonlinStaticDlg, c_nIdLoadComb);
  skyframe.toggle_row(c_nIdLoadCombDlg, c_nIdAvailable, 0);
  skyframe.click(c_nIdLoadCombDlg, c_nIdAdd);
  skyframe.type(c_nIdModeDlg, c_nIdModes, "3");
}

/* Where the result file is, and its lines from the one that begins with the heading. */
static int print_results(const char* title, int analysis, const char* heading, int lines) {
  char line[4096];
  const char* path = skyframe.get_file(analysis, 0);
  FILE* file = path ? fopen(path, "rb") : NULL;
  if (skyframe.get_status(analysis) != c_nRunDone || !file) {
    printf("%s: no result\n", title);
    return 0;
  }
  printf("%s: %s\n", title, path);
  int left = 0;
  while (fgets(line, sizeof line, file)) {
    if (strncmp(line, heading, strlen(heading)) == 0) left = lines;
    if (left > 0 && left--) printf("  %s", line);
  }
  fclose(file);
  return 1;
}

int main(int argc, char** argv) {
  static const struct RecordSizes sizes = SKYFRAME_RECORD_SIZES;
  FILE* console = fopen("portal.log", "wb");
  if (argc != 2 || !console || !load_library(argv[1])) return 2;
#ifdef _WIN32
  SetConsoleOutputCP(CP_UTF8);
#endif
  if (!skyframe.open(&sizes)) return 1;
  printf("Skyframe %s\n", skyframe.version());
  skyframe.use_callbacks(show_message, write_console, console);
  skyframe.reset_host_data();
  skyframe.set_job_path("portal");
  fill_geometry();
  fill_loads();
  answer_dialogs();

  skyframe.on_static_nonlinear_sol();
  skyframe.on_mode();
  const int good = print_results("static analysis", c_nAnalysisStatic, "DOF Displacements", 6) +
                   print_results("modal analysis", c_nAnalysisModal, "Eigen_And_Freq", 4);
  skyframe.close();
  fclose(console);
  return good == 2 ? 0 : 1;
}
