import java.awt.GridLayout;
import javax.swing.JFrame;
import javax.swing.JPasswordField;
import javax.swing.JTextArea;
import javax.swing.JTextField;
import javax.swing.SwingUtilities;

/** A window of Java's with a line, a line whose letters are hidden, and an area. */
public class SwingWindow {
    public static void main(String[] arguments) {
        SwingUtilities.invokeLater(() -> {
            JTextField line = new JTextField();
            line.getAccessibleContext().setAccessibleName("line");
            JPasswordField secret = new JPasswordField();
            secret.getAccessibleContext().setAccessibleName("secret");
            JTextArea area = new JTextArea(6, 40);
            area.getAccessibleContext().setAccessibleName("area");
            JFrame window = new JFrame("Swing");
            window.setLayout(new GridLayout(3, 1));
            window.add(line);
            window.add(secret);
            window.add(area);
            window.setDefaultCloseOperation(JFrame.EXIT_ON_CLOSE);
            window.setSize(500, 300);
            window.setVisible(true);
            line.requestFocusInWindow();
        });
    }
}
