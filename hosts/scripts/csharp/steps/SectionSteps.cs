using System;
using System.Drawing;

// Opens a data set, lists what can be drawn in it, and draws its temperature along a path, month
// after month, all of it late bound; saves the last picture when a name is given.
//   SectionSteps FILE [PICTURE.png]
static class SectionSteps
{
    static dynamic section;

    // The control belongs on a single-threaded apartment.
    [STAThread]
    static int Main(string[] arguments)
    {
        if (arguments.Length < 1 || arguments.Length > 2)
        {
            Console.Error.WriteLine("usage: SectionSteps FILE [PICTURE.png]");
            return 2;
        }
        Type type = Type.GetTypeFromProgID("Kelvane.KelvaneCtl");
        if (type == null)
        {
            Console.Error.WriteLine("No control for {0}-bit programs is registered.",
                                    IntPtr.Size * 8);
            return 1;
        }
        section = Activator.CreateInstance(type);

        if (!Must(section.NcFile(arguments[0]))) return 1;
        for (int i = 1; i <= section.NumDrawAbleItems; ++i)
        {
            Console.WriteLine("{0} {1}", i, (string)section.ItemName(i));
        }

        section.NewSection();
        section.AddSection(285.25f, 32f);       // longitude, latitude: the path's corners
        section.AddSection(292.75f, 35.1f);
        if (!Must(section.EndSection())) return 1;
        if (!Must(section.SetVarByName("temp"))) return 1;

        section.NewColorKey();                  // degrees Celsius: from, to, colour
        section.AddColorKey(0f, 8f, Ole(Color.Navy));
        section.AddColorKey(8f, 12f, Ole(Color.SteelBlue));
        section.AddColorKey(12f, 16f, Ole(Color.Khaki));
        section.AddColorKey(16f, 20f, Ole(Color.Orange));
        section.AddColorKey(20f, 30f, Ole(Color.Firebrick));
        section.UseColorKey = true;             // false for the built-in ramp

        section.Draw();                         // the first month
        int n = 1;
        do
        {
            Console.WriteLine("time step {0}", n);
            n = section.AdvanceTime(1);         // after the last month comes the first again
        } while (n != 1);
        if (arguments.Length == 2) Picture.Save(section, arguments[1], 640, 480);
        return 0;
    }

    // NcFile, EndSection and SetVarByName give 1, or -1 when ErrorMessage tells why not.
    static bool Must(object result)
    {
        if (Convert.ToInt32(result) == 1) return true;
        Console.Error.WriteLine((string)section.ErrorMessage);
        return false;
    }

    static int Ole(Color color)
    {
        return ColorTranslator.ToOle(color);
    }
}
