<?php

declare(strict_types=1);

namespace Zorvel\Bench\Engine;

use League\Plates\Engine as PlatesEngine;
use Zorvel\Bench\Engine;

final class Plates implements Engine
{
    public const ?string PACKAGE = 'league/plates';
    public const string EXTENSION = 'php';

    private readonly PlatesEngine $plates;

    public function __construct(string $templates, string $compiled)
    {
        $this->plates = new PlatesEngine($templates);
    }

    public function render(string $template, array $data): string
    {
        return $this->plates->render($template, $data);
    }

    public static function tag(string ...$keys): string
    {
        return PlainPhp::tag(...$keys);
    }

    public static function includeTag(string $template): string
    {
        return "<?php \$this->insert('$template', ['title' => \$title]) ?>";
    }
}
