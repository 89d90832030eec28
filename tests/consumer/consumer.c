/* A C host built against the installed package with pkg-config. */
#include <vantrel/ddk.h>

#include <stdio.h>
#include <string.h>

int main(void) {
    PluginParameters list = {0, 0};
    int code = 3;
    DDKError* error = ddk_new_error(NULL, &code);
    int ok = error != NULL && error->code == 3 && strcmp(error->message, "Unknown error") == 0;
    ddk_free_error(error);
    insert_plugin(&list, &list, 0, 0);
    ok = ok && list.head != NULL && list.head->param1 == &list;
    free_parameters(&list);
    puts(ok ? "pkg-config consumer: ok" : "pkg-config consumer: FAILED");
    return ok ? 0 : 1;
}
