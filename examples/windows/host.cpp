// A host in C++, early bound: host ROOT, with a backslash at its end. Register the library first,
// see host.vbs. wynconfig_com.h comes with the component; link ole32, oleaut32 and uuid.
#include <initguid.h>
// The identities have to be defined once in a program, and in front of everything else.
#include "com/wynconfig_com.h"

#include <cstdio>

int main(int count, char** words) {
    if (count != 2 || FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 1;
    _WYNConfig* config = nullptr;
    _ResourceManager* texts = nullptr;
    HRESULT done = CoCreateInstance(CLSID_WYNConfig, nullptr, CLSCTX_INPROC_SERVER, IID__WYNConfig,
                                    reinterpret_cast<void**>(&config));
    if (SUCCEEDED(done))
        done = CoCreateInstance(CLSID_ResourceManager, nullptr, CLSCTX_INPROC_SERVER,
                                IID__ResourceManager, reinterpret_cast<void**>(&texts));
    if (FAILED(done)) {
        std::printf("The component is not registered: %08lx\n", static_cast<unsigned long>(done));
        return 1;
    }
    wchar_t root[MAX_PATH];
    MultiByteToWideChar(CP_ACP, 0, words[1], -1, root, MAX_PATH);
    const BSTR path = SysAllocString(root);
    IDispatch* manager = texts;
    config->InitResourceManager(&manager);
    config->init(path);

    BSTR name = SysAllocString(L"from c++");
    LONG result = -1;
    config->showMORAMConfigDlg(&name, &result);
    std::printf("The session dialog gave %ld and '%ls'\n", static_cast<long>(result), name);

    SysFreeString(name);
    SysFreeString(path);
    texts->Release();
    std::printf("References left: %lu\n", static_cast<unsigned long>(config->Release()));
    CoFreeUnusedLibraries();
    CoUninitialize();
    return 0;
}
