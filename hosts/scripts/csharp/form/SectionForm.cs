using System;
using System.Drawing;
using System.Runtime.InteropServices;
using System.Windows.Forms;

// A form with the control on it: opens a data set, draws its temperature along a path, steps and
// plays through its months, and saves the picture.
//   SectionForm [FILE]
sealed class SectionForm : Form
{
    readonly SectionHost host = new SectionHost();
    readonly StatusStrip bar = new StatusStrip();
    readonly ToolStripStatusLabel message = new ToolStripStatusLabel();
    readonly Timer clock = new Timer { Interval = 500 };
    readonly MenuStrip menu = new MenuStrip();
    ToolStripMenuItem view, save;
    dynamic section;

    [STAThread]
    static void Main(string[] arguments)
    {
        Application.EnableVisualStyles();
        using (var form = new SectionForm())
        {
            if (arguments.Length == 1) form.Shown += (from, e) => form.OpenFile(arguments[0]);
            try
            {
                Application.Run(form);
            }
            catch (COMException error)
            {
                // Most often 0x80040154: not registered for programs of this bitness.
                MessageBox.Show(error.Message, "Section");
            }
        }
    }

    SectionForm()
    {
        Text = "Section";
        ClientSize = new Size(800, 560);
        host.Dock = DockStyle.Fill;     // the control draws itself anew at each size it is given
        bar.Items.Add(message);
        var file = new ToolStripMenuItem("&File");
        file.DropDownItems.Add("&Open...", null, (from, e) => AskForFile());
        save = new ToolStripMenuItem("&Save Picture...", null, (from, e) => SavePicture());
        file.DropDownItems.Add(save);
        view = new ToolStripMenuItem("&View");
        view.DropDownItems.Add("&Next Month", null, (from, e) => NextMonth());
        view.DropDownItems.Add("&Play the Year", null, (from, e) => clock.Enabled = !clock.Enabled);
        view.DropDownItems.Add("&Options...", null, (from, e) => ShowOptions());
        menu.Items.Add(file);
        menu.Items.Add(view);
        clock.Tick += (from, e) => { if (NextMonth() == 1) clock.Stop(); };
        Controls.Add(host);
        Controls.Add(bar);
        Controls.Add(menu);
        MainMenuStrip = menu;
        Ready(false);
    }

    protected override void OnLoad(EventArgs e)
    {
        base.OnLoad(e);
        section = host.Section;
    }

    void Ready(bool yes)
    {
        save.Enabled = view.Enabled = yes;
    }

    void AskForFile()
    {
        using (var dialog = new OpenFileDialog { Filter = "netCDF files|*.nc;*.cdf|All files|*.*" })
        {
            if (dialog.ShowDialog(this) == DialogResult.OK) OpenFile(dialog.FileName);
        }
    }

    void OpenFile(string file)
    {
        clock.Stop();
        Ready(false);
        if (!Must(section.NcFile(file))) return;
        section.NewSection();
        section.AddSection(285.25f, 32f);       // longitude, latitude: the path's corners
        section.AddSection(292.75f, 35.1f);
        if (!Must(section.EndSection())) return;
        if (!Must(section.SetVarByName("temp"))) return;

        section.NewColorKey();                  // degrees Celsius: from, to, colour
        section.AddColorKey(0f, 8f, ColorTranslator.ToOle(Color.Navy));
        section.AddColorKey(8f, 12f, ColorTranslator.ToOle(Color.SteelBlue));
        section.AddColorKey(12f, 16f, ColorTranslator.ToOle(Color.Khaki));
        section.AddColorKey(16f, 20f, ColorTranslator.ToOle(Color.Orange));
        section.AddColorKey(20f, 30f, ColorTranslator.ToOle(Color.Firebrick));
        section.UseColorKey = true;             // false for the built-in ramp

        section.Draw();                         // the first month
        message.Text = file;
        Ready(true);
    }

    // NcFile, EndSection and SetVarByName give 1, or -1 when ErrorMessage tells why not.
    bool Must(object result)
    {
        if (Convert.ToInt32(result) == 1) return true;
        message.Text = (string)section.ErrorMessage;
        return false;
    }

    // After the last month comes the first again.
    int NextMonth()
    {
        int n = section.AdvanceTime(1);
        message.Text = "time step " + n;
        return n;
    }

    void ShowOptions()
    {
        clock.Stop();
        section.ShowOptions();
    }

    void SavePicture()
    {
        using (var dialog = new SaveFileDialog { Filter = "PNG|*.png" })
        {
            if (dialog.ShowDialog(this) != DialogResult.OK) return;
            Picture.Save(section, dialog.FileName, host.Width, host.Height);
        }
    }
}
