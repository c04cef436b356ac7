<?php

declare(strict_types=1);

namespace Zorvel\Bench\Engine;

use Zorvel\Bench\Engine;

final class PlainPhp implements Engine
{
    public const ?string PACKAGE = null;
    public const string EXTENSION = 'php';

    public function __construct(private readonly string $templates, string $compiled) {}

    public function render(string $template, array $data): string
    {
        extract($data, EXTR_SKIP);
        ob_start();
        include "$this->templates/$template.php";

        return (string) ob_get_clean();
    }

    public static function tag(string ...$keys): string
    {
        $name = array_shift($keys);

        return "<?= \$$name" . implode('', array_map(static fn(string $key): string => "['$key']", $keys)) . ' ?>';
    }

    public static function includeTag(string $template): string
    {
        return "<?php include __DIR__ . '/$template.php' ?>";
    }
}
