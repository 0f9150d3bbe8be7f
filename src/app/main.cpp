#include "app/application.h"

int main(int argc, char** argv)
{
    return Orvane::Run_Application(argc, argv);
}
