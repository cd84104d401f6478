using System;
using System.Drawing;
using System.Drawing.Imaging;
using System.Runtime.InteropServices;

// The control's picture as a file. The system draws any control into any device context.
static class Picture
{
    [StructLayout(LayoutKind.Sequential)]
    struct Bounds
    {
        public int Left, Top, Right, Bottom;
    }

    const uint ContentAspect = 1;

    [DllImport("ole32.dll", PreserveSig = false)]
    static extern void OleDraw([MarshalAs(UnmanagedType.IUnknown)] object drawn, uint aspect,
                               IntPtr dc, ref Bounds bounds);

    // Saves the picture as PNG. It is sharp when it has the size, in pixels, of the control: that
    // is 640 x 480 for a control without a form.
    public static void Save(object control, string file, int width, int height)
    {
        using (var bitmap = new Bitmap(width, height, PixelFormat.Format24bppRgb))
        {
            using (var graphics = Graphics.FromImage(bitmap))
            {
                var bounds = new Bounds { Right = width, Bottom = height };
                IntPtr dc = graphics.GetHdc();
                try
                {
                    OleDraw(control, ContentAspect, dc, ref bounds);
                }
                finally
                {
                    graphics.ReleaseHdc(dc);
                }
            }
            bitmap.Save(file, ImageFormat.Png);
        }
    }
}
